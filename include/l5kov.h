// SPDX-License-Identifier: MIT
#ifndef L5KOV_H_
#define L5KOV_H_

// Everything a host compiles against. The road of a calibration, in the order a host walks it:
//   lumora::kov::KovMonitorManager   finds the monitors of the workstation
//   lumora::Monitor                  answers for one monitor
//   lumora::kov::KovCalibrator       calibrates one monitor, calling the host's
//   lumora::kov::KovCalibratorDelegate to draw, to measure and to report progress
//   pocketjson::Value                carries targets in and results out
// The headers need C++17 and no JDK.

#include "l5kov/export.h"
#include "lumora/kov/java/java_env.h"
#include "lumora/kov/java/java_exception.h"
#include "lumora/kov/kov_calibration_his_info.h"
#include "lumora/kov/kov_calibrator.h"
#include "lumora/kov/kov_calibrator_delegate.h"
#include "lumora/kov/kov_monitor_manager.h"
#include "lumora/kov/om_error.h"
#include "lumora/kov/patch_record.h"
#include "lumora/monitor.h"
#include "lumora/monitor_control.h"
#include "lumora/om_types.h"
#include "pocketjson/value.h"

#endif  // L5KOV_H_
