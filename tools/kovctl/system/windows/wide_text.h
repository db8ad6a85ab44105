// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_WIDE_TEXT_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_WIDE_TEXT_H_

#include <string>
#include <string_view>

namespace kovctl::sys {

// kovctl's texts are UTF-8, the system's are UTF-16. What is not valid becomes U+FFFD.
std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view wide);

// The system's text for an error number, without its line end; where it leaves room for a name, with
// that one.
std::string reasonOf(unsigned long error, const std::string& about = "it");

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_WINDOWS_WIDE_TEXT_H_
