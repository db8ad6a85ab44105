// SPDX-License-Identifier: MIT
#include "system/shared_library.h"

#include <windows.h>

#include <stdexcept>

#include "system/windows/missing_import.h"
#include "system/windows/wide_text.h"

namespace kovctl::sys {
namespace {

std::string inWords(const std::string& name, DWORD error) {
  const std::string missing = error == ERROR_MOD_NOT_FOUND ? missingImport(name) : "";
  if (missing.empty() || missing == name) return name + ": " + reasonOf(error, name);
  return missing + ", which " + name + " needs: " + reasonOf(error, missing);
}

}  // namespace

SharedLibrary::SharedLibrary(const std::string& name) : handle(::LoadLibraryW(wide(name).c_str())) {
  if (handle == nullptr) throw std::runtime_error(inWords(name, ::GetLastError()));
}

void* SharedLibrary::find(const char* symbol) const {
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle), symbol));
}

}  // namespace kovctl::sys
