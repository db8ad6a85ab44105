// SPDX-License-Identifier: MIT
#include "platform/windows/pinned_module.h"

#include <windows.h>

namespace lumora::platform::windows {

bool pinModuleOf(const void* address) noexcept {
  HMODULE module = nullptr;
  return ::GetModuleHandleExW(
             GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
             static_cast<const wchar_t*>(address), &module) != FALSE;
}

}  // namespace lumora::platform::windows
