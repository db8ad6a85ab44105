// SPDX-License-Identifier: MIT
#ifndef L5KOV_PLATFORM_WINDOWS_PINNED_MODULE_H_
#define L5KOV_PLATFORM_WINDOWS_PINNED_MODULE_H_

namespace lumora::platform::windows {

/// Keeps the module that holds `address` in the process until it ends; false when the system
/// refuses.
bool pinModuleOf(const void* address) noexcept;

}  // namespace lumora::platform::windows

#endif  // L5KOV_PLATFORM_WINDOWS_PINNED_MODULE_H_
