// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_ARMING_H_
#define L5KOV_TOOLS_KOVCTL_RUN_ARMING_H_

#include "cli/context.h"
#include "monitors/mode_keeper.h"
#include "monitors/run_lock.h"
#include "record/run_record.h"

namespace kovctl {

/// From here on a run changes its monitor. Warns, on the spot and in the record, where that leaves
/// no note or is not kept apart from other runs.
void armRun(Context& context, RunRecord& record, ModeKeeper& keeper, const RunLock& lock);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_ARMING_H_
