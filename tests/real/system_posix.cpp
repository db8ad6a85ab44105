// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <stdlib.h>

#include <stdexcept>

#include "tests/real/system.h"

namespace realtest::system {

namespace fs = std::filesystem;

fs::path makeFolder() {
  std::string pattern = (fs::temp_directory_path() / "kov-real-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return pattern;
}

void setVariable(const char* name, const std::string& value) { ::setenv(name, value.c_str(), 1); }

void* runtimeExport(const fs::path& jre, const char* symbol) {
  void* const module = ::dlopen((jre / "lib/server/libjvm.so").c_str(), RTLD_NOW);
  void* const address = module == nullptr ? nullptr : ::dlsym(module, symbol);
  if (address == nullptr) throw std::runtime_error(::dlerror());
  return address;
}

std::string classPath(const fs::path& plugins) {
  return (plugins / "com.orva.lumora.dataImport/external/dataImport.jar").string() + ":" +
         (plugins / "com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar").string();
}

std::string nativeLibraryPath(const fs::path& plugins) {
  return (plugins / "com.orva.lumora.jre/jre/bin").string();
}

}  // namespace realtest::system
