// SPDX-License-Identifier: MIT
#include "system/shared_library.h"

#include <windows.h>

#include <stdexcept>

#include "system/windows/wide_text.h"

namespace kovctl::sys {

SharedLibrary::SharedLibrary(const std::string& name) : handle(::LoadLibraryW(wide(name).c_str())) {
  if (handle == nullptr) throw std::runtime_error(name + ": " + reasonOf(::GetLastError()));
}

void* SharedLibrary::find(const char* symbol) const {
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle), symbol));
}

}  // namespace kovctl::sys
