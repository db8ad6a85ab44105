// SPDX-License-Identifier: MIT
#ifndef L5KOV_MONITOR_HISTORY_H_
#define L5KOV_MONITOR_HISTORY_H_

#include <vector>

#include "java/api_monitor.h"
#include "lumora/kov/kov_calibration_his_info.h"

namespace lumora::kov {

// A record for every entry of the monitor's history, in the Java library's order; empty when the
// monitor has none.
std::vector<KovCalibrationHisInfo> readHistory(java::JavaEnv* thread,
                                               const java::JApiMonitor& monitor);

}  // namespace lumora::kov

#endif  // L5KOV_MONITOR_HISTORY_H_
