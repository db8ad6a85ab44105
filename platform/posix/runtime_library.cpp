// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <algorithm>
#include <string_view>

#include "platform/platform.h"
#include "platform/posix/native_path.h"

namespace lumora::platform {
namespace {

// Where a Java runtime keeps its library: "bin\server\jvm.dll" on Windows, here:
constexpr std::string_view kWindowsLibrary = "/bin/server/jvm.dll";
constexpr std::string_view kNativeLibrary = "/lib/server/libjvm.so";

std::string nativeLibraryPath(const std::string& path) {
  std::string native = posix::nativePath(path);
  if (native.size() >= kWindowsLibrary.size() &&
      native.compare(native.size() - kWindowsLibrary.size(), std::string::npos, kWindowsLibrary) ==
          0) {
    native.replace(native.size() - kWindowsLibrary.size(), std::string::npos, kNativeLibrary);
  }
  return native;
}

}  // namespace

// RTLD_NODELETE: the virtual machine is never destroyed, so its threads still run this code when
// the library is given back at process exit.
RuntimeLibrary loadRuntimeLibrary(const std::string& path) {
  return ::dlopen(nativeLibraryPath(path).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
}

void* findExport(RuntimeLibrary library, const char* name) { return ::dlsym(library, name); }

void freeRuntimeLibrary(RuntimeLibrary library) noexcept {
  if (library != nullptr) ::dlclose(library);
}

// "-Dname=a\b;c;" becomes "-Dname=a/b:c". Empty entries go: to the virtual machine an empty entry
// of the class path is the current folder, and a class lying there would be loaded and run.
std::string runtimeOption(const std::string& option) {
  const std::string native = posix::nativePath(option);
  const std::size_t valueAt = native.find('=') == std::string::npos ? 0 : native.find('=') + 1;
  std::string result = native.substr(0, valueAt);
  bool first = true;
  for (std::size_t at = valueAt; at < native.size();) {
    const std::size_t end = std::min(native.find(';', at), native.size());
    if (end > at) {
      if (!first) result += ':';
      result.append(native, at, end - at);
      first = false;
    }
    at = end + 1;
  }
  return result;
}

}  // namespace lumora::platform
