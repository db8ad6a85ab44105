// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "platform/posix/native_path.h"
#include "platform/posix/regular_file.h"

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

// Whether the file holds all that its program headers tell the loader to map. The loader itself
// does not look: it would map what is not there and the process would end with SIGBUS.
bool isWhole(const std::string& path) {
  const posix::RegularFile file(path);
  const std::size_t size = file.size();
  ElfW(Ehdr) header = {};
  if (!file.isOpen() || !file.read(&header, sizeof header)) return false;
  // A file of another kind is the loader's to refuse.
  if (header.e_phentsize != sizeof(ElfW(Phdr)) || header.e_phoff > size) return true;
  std::vector<ElfW(Phdr)> parts(header.e_phnum);
  if (!file.read(parts.data(), parts.size() * sizeof(ElfW(Phdr)), header.e_phoff)) return false;
  return std::all_of(parts.begin(), parts.end(), [size](const ElfW(Phdr) & part) {
    return part.p_type != PT_LOAD ||
           (part.p_filesz <= size && part.p_offset <= size - part.p_filesz);
  });
}

// Whether a Java runtime from another file runs in the process: the host is a Java program. A
// second one would take the first one's functions for its own and end the process. Loads nothing.
bool anotherRuns(const std::string& path) {
  void* const loaded = ::dlopen("libjvm.so", RTLD_LAZY | RTLD_NOLOAD);
  if (loaded == nullptr) return false;
  void* const own = ::dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
  using Created = int (*)(void** machines, int room, int* count);
  const auto created = reinterpret_cast<Created>(::dlsym(loaded, "JNI_GetCreatedJavaVMs"));
  void* machine = nullptr;
  int count = 0;
  const bool runs =
      own != loaded && created != nullptr && created(&machine, 1, &count) == 0 && count > 0;
  ::dlclose(loaded);
  if (own != nullptr) ::dlclose(own);
  return runs;
}

}  // namespace

// RTLD_NODELETE: the virtual machine is never destroyed, so its threads still run this code when
// the library is given back at process exit.
RuntimeLibrary loadRuntimeLibrary(const std::string& path) {
  const std::string native = nativeLibraryPath(path);
  if (!isWhole(native) || anotherRuns(native)) return nullptr;
  return ::dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
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
