// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_RUN_H_
#define L5KOV_TOOLS_KOVCTL_RUN_RUN_H_

#include "cli/context.h"
#include "run/run_options.h"

namespace kovctl {

/// Calibrates a monitor and measures what came of it. However it ends, unless the
/// program is killed, the monitor's state is read back and said.
ExitCode calibrate(Context& context, const RunOptions& options);

/// Measures a monitor without changing it.
ExitCode verify(Context& context, const RunOptions& options);

/// Says what calibrate would aim at and measure; needs no monitor.
ExitCode dryRun(Context& context, const RunOptions& options);

/// @throws Failure(kUsage) for a limits profile that is not there
void checkLimits(const RunOptions& options);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_RUN_H_
