// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_PATCH_ROLES_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_PATCH_ROLES_H_

#include <vector>

#include "record/run_record.h"

namespace kovctl {

/// Tells from the order of a calibration's patches what each was measured for; the library shows
/// patches without saying so. A calibration measures whites until the panel is warm, blacks,
/// whites, the primaries of a colour panel, the gray scale upwards, and after the correction is
/// loaded again the gray scale upwards. A gray scale is a run of at least three rising gray levels
/// that begins with black: the first one is kGray, the last of two or more is kLibraryVerify.
/// Whatever else lies behind the first gray scale is kOther. Works for a calibration that ended
/// early, too.
void assignCalibrationRoles(std::vector<PatchResult>& patches);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_PATCH_ROLES_H_
