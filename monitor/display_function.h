// SPDX-License-Identifier: MIT
#ifndef L5KOV_MONITOR_DISPLAY_FUNCTION_H_
#define L5KOV_MONITOR_DISPLAY_FUNCTION_H_

#include "java/api_calibration.h"

namespace lumora::kov {

// Codes of display functions, as history records and stored targets carry them.
enum class DisplayFunction : int {
  kOther = 0,  // Kept: several names, and every unknown one, share this code
  kCie1976 = 1,
  kGamma = 2,
  kLogarithmicLinear = 3,
  kLinear = 4,  // a gamma function of exponent 1.0
  kOriginal = 5,
  kUserDefined = 6,
};

// The code of a target's gamma model type. Asks for the gamma value only of a gamma function.
DisplayFunction displayFunctionOf(const java::JApiCalibrationTargetValues& target);

}  // namespace lumora::kov

#endif  // L5KOV_MONITOR_DISPLAY_FUNCTION_H_
