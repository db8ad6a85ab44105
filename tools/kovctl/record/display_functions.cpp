// SPDX-License-Identifier: MIT
#include "record/display_functions.h"

#include <fmt/format.h>

#include <cstddef>
#include <iterator>

namespace kovctl {
namespace {

constexpr DisplayFunctionNames kFunctions[] = {
    {DisplayFunction::kDicom, "dicom", "DICOM", "DICOM grayscale standard display function"},
    {DisplayFunction::kCie, "cie", "CIE L*", "CIE 1976 lightness"},
    {DisplayFunction::kExp, "gamma", "gamma", "Gamma"},
    {DisplayFunction::kLogLinear, "loglinear", "logarithmic-linear",
     "Logarithmic luminance, linear"},
    {DisplayFunction::kLinear, "linear", "linear", "Linear (gamma 1)"},
    {DisplayFunction::kNative, "native", "native", "Native (no correction)"},
    {DisplayFunction::kUserDefine, "user", "user-defined", "User-defined"},
};

const DisplayFunctionNames& namesOf(DisplayFunction function) {
  return kFunctions[static_cast<std::size_t>(function)];
}

std::string withExponent(const char* name, const TargetInfo& target) {
  if (target.function != DisplayFunction::kExp) return name;
  return fmt::format("{} {:g}", name, target.exponent.value_or(0.0));
}

}  // namespace

std::span<const DisplayFunctionNames> displayFunctions() {
  return kFunctions;
}

std::optional<DisplayFunction> displayFunctionOf(int code) {
  if (code < 0 || code >= static_cast<int>(std::size(kFunctions))) return std::nullopt;
  return kFunctions[code].function;
}

std::string functionText(const TargetInfo& target) {
  return withExponent(namesOf(target.function).text, target);
}

std::string fullFunctionText(const TargetInfo& target) {
  const std::string text = withExponent(namesOf(target.function).full, target);
  if (target.function != DisplayFunction::kUserDefine) return text;
  return target.userCurve.empty() ? text + ", curve not known"
                                  : fmt::format("{}, {} points", text, target.userCurve.size());
}

}  // namespace kovctl
