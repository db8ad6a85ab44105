// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_RECORD_START_H_
#define L5KOV_TOOLS_KOVCTL_RUN_RECORD_START_H_

#include <l5kov.h>

#include "monitors/found_monitors.h"
#include "record/run_record.h"
#include "run/run_options.h"

namespace kovctl {

/// Everything that a record says before anything was measured. Fills `simulated` as far as the
/// libraries of this process tell.
RunRecord startRecord(RunKind kind, const ChosenMonitor& chosen, int lut,
                      const TargetRequest& request, const RunOptions& options,
                      const InstrumentInfo& instrument);

/// The history that the monitor itself keeps of one look-up table, oldest first.
std::vector<HistoryPoint> monitorHistory(const lumora::Monitor& monitor, int lut);

/// Kovctl, the library, the Java runtime and the jars.
VersionInfo versions();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_RECORD_START_H_
