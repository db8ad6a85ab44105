// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_BINARY_FORMAT_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_BINARY_FORMAT_H_

#include <string>
#include <string_view>

namespace kovctl::sys {

/// The machine that a program or library file is for ("x86-64"); empty when the bytes are none of
/// this system's formats.
std::string machineOf(std::string_view file);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_BINARY_FORMAT_H_
