// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <stdlib.h>

#include <stdexcept>
#include <system_error>

#include "tests/support/plugin_folder.h"

namespace kovtest::system {

namespace fs = std::filesystem;

fs::path runtimeLibrary() { return "jre/lib/server/libjvm.so"; }

fs::path makeRoot() {
  std::string pattern = (fs::temp_directory_path() / "l5kov-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), pattern);
  }
  ::setenv("L5KOV_COMMON_APPDATA", pattern.c_str(), 1);
  return pattern;
}

void removeRoot(const fs::path& root) {
  std::error_code ignored;
  fs::remove_all(root, ignored);
}

void setRoot(const fs::path& root) { ::setenv("L5KOV_COMMON_APPDATA", root.c_str(), 1); }

// The loader knows a file by its inode: the link and the library are one module.
void place(const fs::path& library, const fs::path& at) { fs::create_symlink(library, at); }

// Never closed: the virtual machine lives until the process ends.
void* load(const fs::path& library, const char* symbol) {
  void* const module = ::dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  void* const address = module == nullptr ? nullptr : ::dlsym(module, symbol);
  if (address == nullptr) throw std::runtime_error(::dlerror());
  return address;
}

void* loadedSymbol(const fs::path& library, const char* symbol) {
  void* const module = ::dlopen(library.c_str(), RTLD_NOW | RTLD_NOLOAD);
  return module == nullptr ? nullptr : ::dlsym(module, symbol);
}

}  // namespace kovtest::system
