// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_ASSETS_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_ASSETS_H_

#include <string_view>

namespace kovctl {

// The files that go into every report, built in. The last three are empty in a build without uPlot.
std::string_view styleSheet();
std::string_view chartsScript();
std::string_view uplotScript();
std::string_view uplotStyleSheet();
std::string_view uplotLicense();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_ASSETS_H_
