// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <elf.h>
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

void copyInstallation(const fs::path& from, const fs::path& to) {
  fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
}

fs::path runtimeLibrary() { return "lib/server/libjvm.so"; }

std::string as32Bits(std::string library) {
  library.at(EI_CLASS) = ELFCLASS32;
  return library;
}

bool isRefusedForItsBits(const fs::path& library) {
  if (::dlopen(library.c_str(), RTLD_NOW) != nullptr) return false;
  return std::string(::dlerror()).find("wrong ELF class: ELFCLASS32") != std::string::npos;
}

void* runtimeExport(const fs::path& jre, const char* symbol) {
  void* const module = ::dlopen((jre / runtimeLibrary()).c_str(), RTLD_NOW);
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
