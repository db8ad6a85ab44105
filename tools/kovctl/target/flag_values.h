// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_TARGET_FLAG_VALUES_H_
#define L5KOV_TOOLS_KOVCTL_TARGET_FLAG_VALUES_H_

#include <string>

#include "record/run_record.h"

namespace kovctl {

// Texts of the command line as values, whatever the locale. All throw Failure(kUsage) that names
// the option and what would be possible.
double numberFlag(const std::string& option, const std::string& text, double lowest,
                  double highest);
int integerFlag(const std::string& option, const std::string& text, int lowest, int highest);
/// Gray levels of a calibration: 0, the library's choice, or enough for a scale.
int levelsFlag(const std::string& option, const std::string& text);
/// "K6500"
int kelvinFlag(const std::string& option, const std::string& text);
/// "x,y"
Chromaticity chromaticityFlag(const std::string& option, const std::string& text);
/// dicom, cie, loglinear, linear, native, user; the library's own names too
DisplayFunction functionFlag(const std::string& text);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_TARGET_FLAG_VALUES_H_
