// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_HISTORY_TIMES_H_
#define L5KOV_TOOLS_KOVCTL_RUN_HISTORY_TIMES_H_

#include <string>

namespace kovctl {

/// A date as monitors keep it ("2026-01-31 12:00:00", this computer's local time) as UTC in the
/// form of records; any other text as it is.
std::string utcOf(const std::string& executeDate);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_HISTORY_TIMES_H_
