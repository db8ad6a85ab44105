// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_COMMAND_LINE_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_COMMAND_LINE_H_

#include <string>
#include <utility>
#include <vector>

namespace kovctl::sys {

// One text that the C runtimes take apart into these arguments again.
std::wstring commandLine(const std::vector<std::string>& arguments);

// This process's environment with more variables, as the system wants it: "NAME=VALUE" texts, each
// with a NUL, and a NUL at the end.
std::wstring environmentBlock(const std::vector<std::pair<std::string, std::string>>& more);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_COMMAND_LINE_H_
