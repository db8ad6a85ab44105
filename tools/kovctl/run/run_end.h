// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_RUN_END_H_
#define L5KOV_TOOLS_KOVCTL_RUN_RUN_END_H_

#include "cli/context.h"
#include "failure.h"
#include "metrics/evaluation.h"
#include "metrics/verdict.h"
#include "monitors/mode_keeper.h"
#include "record/run_record.h"
#include "run/run_options.h"

namespace kovctl {

/// Judges the record, says the verdict and the monitor's state, writes report and record where they
/// are wanted. `code` is what the run ended with so far; kOk becomes kOutsideLimits where the
/// verdict is no pass, and kOutput where a file could not be written.
ExitCode endRun(Context& context, RunRecord& record, const RunOptions& options, ExitCode code);

/// Says why a run failed and puts that into its record; the exit code.
ExitCode takeFailure(Context& context, RunRecord& record, const Failure& failure);

/// kOutsideLimits in place of kOk where a verdict is no pass; where no limits were chosen, nothing
/// can be outside.
ExitCode judgedCode(ExitCode code, const RunRecord& record, const Verdict& verdict);

/// Warns where an earlier run was killed and has left the monitor in another state.
void sayPending(Context& context, RunRecord& record, const ModeKeeper& keeper);

/// The criteria of a verdict as a table for people.
std::string verdictText(const Console& console, const Verdict& verdict);
/// The same for programs.
Json verdictJson(const Verdict& verdict);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_RUN_END_H_
