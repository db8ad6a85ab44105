// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_TARGET_WHITE_POINT_H_
#define L5KOV_TOOLS_KOVCTL_TARGET_WHITE_POINT_H_

#include "record/run_record.h"

namespace kovctl {

/// The colour that the vendor's colour library makes of a temperature, which is the one that a
/// calibration will aim at. @throws Failure(kRuntime) when the library lacks the function
Chromaticity whitePointOf(int kelvin);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_TARGET_WHITE_POINT_H_
