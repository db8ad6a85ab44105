// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_DOCTOR_JAVA_OPTIONS_H_
#define L5KOV_TOOLS_KOVCTL_DOCTOR_JAVA_OPTIONS_H_

#include <string>
#include <string_view>
#include <vector>

namespace kovctl {

/// The options in such a text as the Java runtime takes them apart: at blanks, where no quotes
/// stand around these.
std::vector<std::string> splitJavaOptions(std::string_view text);

/// Whether the Java runtime at most refuses the option, and never ends the process for it: there is
/// nothing that it could fail to find, to load or to get.
bool isHarmlessJavaOption(std::string_view option);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_DOCTOR_JAVA_OPTIONS_H_
