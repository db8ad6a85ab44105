// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_ARGUMENTS_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_ARGUMENTS_H_

#include <string>
#include <vector>

namespace kovctl::sys {

/// This program's command line, the program first, in UTF-8: what main() was given, or, where that
/// comes in another encoding, what the system has kept.
std::vector<std::string> commandLineArguments(int count, const char* const* given);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_ARGUMENTS_H_
