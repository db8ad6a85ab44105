// SPDX-License-Identifier: MIT
#include <windows.h>
//
#include <shlobj.h>

#include <stdexcept>

#include "tests/support/plugin_folder.h"

namespace kovtest::system {

namespace fs = std::filesystem;

namespace {

fs::path shellsFolder() {
  wchar_t folder[MAX_PATH] = {};
  if (::SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, 0, folder) != S_OK) {
    throw std::runtime_error("SHGetFolderPathW");
  }
  return folder;
}

}  // namespace

fs::path runtimeLibrary() { return "jre/bin/server/jvm.dll"; }

// The library asks the shell, so tests need a machine (a Wine prefix) whose shell takes the folder
// from this variable: "User Shell Folders", "Common AppData", %L5KOV_COMMON_APPDATA%. Elsewhere all
// tests share the machine's own folder, and must run one at a time.
fs::path makeRoot() {
  // A process of the same number may have left its own behind, which it still used at its end.
  fs::path own;
  int roots = 0;
  do {
    own = fs::temp_directory_path() /
          ("l5kov-test-" + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(++roots));
  } while (!fs::create_directory(own));
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", own.c_str());
  const fs::path folder = shellsFolder();
  if (own != folder) fs::remove(own);
  return folder;
}

void setRoot(const fs::path& root) {
  ::SetEnvironmentVariableW(L"L5KOV_COMMON_APPDATA", root.c_str());
  if (shellsFolder() != root) throw std::runtime_error("the shell's folder is fixed here");
}

// What is in use stays: the runtime's library, until the process has ended.
void removeRoot(const fs::path& root) {
  std::error_code inUse;
  if (root.filename().wstring().starts_with(L"l5kov-test-")) fs::remove_all(root, inUse);
}

// A second name of the same file where the file system has such; a symbolic link needs a privilege.
void place(const fs::path& library, const fs::path& at) {
  std::error_code refused;
  fs::create_hard_link(library, at, refused);
  if (refused) fs::copy_file(library, at, fs::copy_options::update_existing, refused);
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

void* loadedSymbol(const fs::path& library, const char* symbol) {
  const HMODULE module = ::GetModuleHandleW(fs::path(library).make_preferred().c_str());
  if (module == nullptr) return nullptr;
  return reinterpret_cast<void*>(::GetProcAddress(module, symbol));
}

}  // namespace kovtest::system
