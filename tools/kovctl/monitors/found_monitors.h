// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_FOUND_MONITORS_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_FOUND_MONITORS_H_

#include <l5kov.h>

#include <string>
#include <vector>

#include "cli/context.h"
#include "monitors/selection.h"
#include "record/run_record.h"

namespace kovctl {

/// The attached monitors, by the library's search.
struct FoundMonitors {
  std::vector<lumora::Monitor> monitors;
  std::vector<Candidate> names;  ///< one for each, in the same order
  /// kOk, or why one of the others did not answer.
  ExitCode silent = ExitCode::kOk;
};

/// Starts Java where needed. A monitor that does not say its name is warned of.
/// @throws Failure(kRuntime) when Java cannot be had, and JavaException
FoundMonitors findMonitors(Context& context);

struct ChosenMonitor {
  lumora::Monitor monitor;
  MonitorName name;
  std::size_t number;  ///< as the list counts, from 1
};

/// The monitor that -m names; without it the only one, or, at a terminal, the one that the user
/// answers. @throws Failure(kMonitor), or with the code of a monitor that does not answer
ChosenMonitor chooseMonitor(Context& context, const std::string& wanted);

/// What the run record keeps of a monitor.
MonitorInfo monitorInfo(const lumora::Monitor& monitor, const MonitorName& name, int lut);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_FOUND_MONITORS_H_
