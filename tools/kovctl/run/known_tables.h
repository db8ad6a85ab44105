// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_KNOWN_TABLES_H_
#define L5KOV_TOOLS_KOVCTL_RUN_KNOWN_TABLES_H_

#include <l5kov.h>

namespace kovctl {

/// For a target that the Java library did not accept: it takes a part of it from the monitor's
/// history, where there must be something to take.
/// @throws Failure(kUsage) for a table that the history does not know, Failure(kJava) for a monitor
///         without any history
void refuseTableWithoutHistory(const lumora::Monitor& monitor, int lut);

/// For a calibration that has failed: whether the monitor has no such table. Asks the monitor to
/// activate it where its history does not know it: the caller puts back what was active.
bool isMissingTable(const lumora::Monitor& monitor, int lut);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_KNOWN_TABLES_H_
