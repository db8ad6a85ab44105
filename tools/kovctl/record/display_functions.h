// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RECORD_DISPLAY_FUNCTIONS_H_
#define L5KOV_TOOLS_KOVCTL_RECORD_DISPLAY_FUNCTIONS_H_

#include <optional>
#include <span>
#include <string>

#include "record/run_record.h"

namespace kovctl {

/// What a display function is called, beside its name in files.
struct DisplayFunctionNames {
  DisplayFunction function;
  const char* flag;  ///< on the command line; gamma needs its exponent there
  const char* text;  ///< for people, in a line
  const char* full;  ///< for people, in a report
};

/// In the order of the library's codes, which count from 0.
std::span<const DisplayFunctionNames> displayFunctions();

/// By the code with which monitors keep it.
std::optional<DisplayFunction> displayFunctionOf(int code);

/// "DICOM", "gamma 2.2", … for people.
std::string functionText(const TargetInfo& target);
/// The same at full length: "DICOM grayscale standard display function".
std::string fullFunctionText(const TargetInfo& target);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RECORD_DISPLAY_FUNCTIONS_H_
