// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include <stdlib.h>

#include <stdexcept>

#include "tests/real/system.h"

namespace realtest::system {
namespace {

namespace fs = std::filesystem;

std::string native(fs::path path) { return path.make_preferred().string(); }

}  // namespace

fs::path makeFolder() {
  static int folders = 0;
  const fs::path folder =
      fs::temp_directory_path() /
      ("kov-real-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++folders));
  fs::remove_all(folder);
  fs::create_directories(folder);
  return folder;
}

// In the C runtime's copy and in the process's own.
void setVariable(const char* name, const std::string& value) {
  ::_putenv_s(name, value.c_str());
  ::SetEnvironmentVariableA(name, value.c_str());
}

void* runtimeExport(const fs::path& jre, const char* symbol) {
  const fs::path library = fs::path(jre / "bin/server/jvm.dll").make_preferred();
  const HMODULE module = ::LoadLibraryW(library.c_str());
  const FARPROC address = module == nullptr ? nullptr : ::GetProcAddress(module, symbol);
  if (address == nullptr) throw std::runtime_error("cannot load " + library.string());
  return reinterpret_cast<void*>(address);
}

std::string classPath(const fs::path& plugins) {
  return native(plugins / "com.orva.lumora.dataImport/external/dataImport.jar") + ";" +
         native(plugins / "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar") + ";";
}

std::string nativeLibraryPath(const fs::path& plugins) {
  return native(plugins / "com.orva.lumora.jre/jre/bin") + ";";
}

}  // namespace realtest::system
