// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include <shlobj.h>

#include <stdexcept>

#include "tests/support/plugin_folder.h"

namespace kovtest::system {

namespace fs = std::filesystem;

fs::path runtimeLibrary() {
  return "jre/bin/server/jvm.dll";
}

// There is no variable to point elsewhere: tests write into the machine's own folder (one machine,
// or one Wine prefix, per test run).
fs::path makeRoot() {
  char folder[MAX_PATH] = {};
  if (::SHGetFolderPathA(nullptr, CSIDL_COMMON_APPDATA, nullptr, 0, folder) != S_OK) {
    throw std::runtime_error("SHGetFolderPathA");
  }
  return folder;
}

// Another test's process may be using what lies there.
void removeRoot(const fs::path&) {}

// A module is known by its path here, so a link would do as well, but needs a privilege.
void place(const fs::path& library, const fs::path& at) {
  std::error_code inUse;
  fs::copy_file(library, at, fs::copy_options::update_existing, inUse);
}

void* load(const fs::path& library, const char* symbol) {
  const HMODULE module = ::LoadLibraryW(fs::path(library).make_preferred().c_str());
  const FARPROC address = module == nullptr ? nullptr : ::GetProcAddress(module, symbol);
  if (address == nullptr) {
    throw std::runtime_error("error " + std::to_string(::GetLastError()) + " loading " +
                             library.string());
  }
  return reinterpret_cast<void*>(address);
}

}  // namespace kovtest::system
