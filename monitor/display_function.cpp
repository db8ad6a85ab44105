// SPDX-License-Identifier: MIT
#include "monitor/display_function.h"

#include <cmath>
#include <string>
#include <string_view>

#include "java/java_classes.h"

namespace lumora::kov {
namespace {

struct Row {
  std::string_view gammaModelType;
  DisplayFunction code;
};

constexpr std::string_view kGammaFunction = "Gamma Function";
constexpr Row kRows[] = {
    {"CIE 1976", DisplayFunction::kCie1976},
    {"CIE DIN 6174", DisplayFunction::kOther},
    {"CRT", DisplayFunction::kOther},
    {"Dicom 14", DisplayFunction::kOther},
    {"Undefined", DisplayFunction::kOther},
    {"Logarithmic Luminance Linear", DisplayFunction::kLogarithmicLinear},
    {"Original", DisplayFunction::kOriginal},
    {"Userdefined", DisplayFunction::kUserDefined},
};
constexpr double kLinearTolerance = 1e-6;  // strictly below

}  // namespace

DisplayFunction displayFunctionOf(const java::JApiCalibrationTargetValues& target) {
  const std::string type = target.getGammaModelType();
  if (type == kGammaFunction) {
    return std::abs(target.getGammaValue() - 1.0) < kLinearTolerance ? DisplayFunction::kLinear
                                                                     : DisplayFunction::kGamma;
  }
  for (const Row& row : kRows) {
    if (type == row.gammaModelType) return row.code;
  }
  return DisplayFunction::kOther;
}

}  // namespace lumora::kov
