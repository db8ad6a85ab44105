// SPDX-License-Identifier: MIT
#ifndef L5KOV_MONITOR_STORED_TARGET_H_
#define L5KOV_MONITOR_STORED_TARGET_H_

#include "java/api_monitor.h"
#include "pocketjson/value.h"

namespace lumora::kov {

// The target that look-up table `lutNumber` (the Java library's own number) was calibrated for: the
// first history entry with that number; the null value when there is none.
pocketjson::Value storedTarget(java::JavaEnv* thread, const java::JApiMonitor& monitor,
                               unsigned int lutNumber);

}  // namespace lumora::kov

#endif  // L5KOV_MONITOR_STORED_TARGET_H_
