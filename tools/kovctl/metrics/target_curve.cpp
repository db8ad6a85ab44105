// SPDX-License-Identifier: MIT
#include "metrics/target_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "metrics/gsdf.h"
#include "metrics/lightness.h"

namespace kovctl {
namespace {

bool rises(const std::vector<double>& points) {
  return points.size() >= 2 && std::is_sorted(points.begin(), points.end()) &&
         points.front() < points.back();
}

}  // namespace

TargetCurve::TargetCurve(const TargetInfo& target, double lmin, double lmax)
    : function(target.function),
      black(lmin),
      white(lmax),
      ambient(target.ambient.value_or(0.0)),
      exponent(target.function == DisplayFunction::kLinear ? 1.0 : target.exponent.value_or(0.0)),
      points(target.userCurve) {}

std::optional<TargetCurve> TargetCurve::of(const TargetInfo& target, double lmin, double lmax) {
  const TargetCurve curve(target, lmin, lmax);
  return curve.isPossible() ? std::optional<TargetCurve>(curve) : std::nullopt;
}

bool TargetCurve::isPossible() const {
  if (!(black >= 0.0 && black < white && ambient >= 0.0)) return false;
  switch (function) {
    case DisplayFunction::kDicom:
    case DisplayFunction::kCie:
      return true;
    case DisplayFunction::kExp:
    case DisplayFunction::kLinear:
      return exponent > 0.0;
    case DisplayFunction::kLogLinear:
      return black + ambient > 0.0;
    case DisplayFunction::kUserDefine:
      return rises(points);
    case DisplayFunction::kNative:
      break;
  }
  return false;
}

double TargetCurve::luminance(double level) const {
  const double darkest = black + ambient;
  const double brightest = white + ambient;
  switch (function) {
    case DisplayFunction::kDicom: {
      const double first = gsdfIndex(darkest);
      return gsdfLuminance(first + level * (gsdfIndex(brightest) - first)) - ambient;
    }
    case DisplayFunction::kCie: {
      const double first = lightness(darkest / brightest);
      return brightest * luminanceOfLightness(first + level * (100.0 - first)) - ambient;
    }
    case DisplayFunction::kExp:
    case DisplayFunction::kLinear:
      return black + (white - black) * std::pow(level, exponent);
    case DisplayFunction::kLogLinear:
      return darkest * std::pow(brightest / darkest, level) - ambient;
    case DisplayFunction::kUserDefine:
      return userDefined(level);
    case DisplayFunction::kNative:
      break;
  }
  return black;
}

// Only the shape of the points counts; they are stretched to the range.
double TargetCurve::userDefined(double level) const {
  const double place = level * static_cast<double>(points.size() - 1);
  const std::size_t below = std::min(static_cast<std::size_t>(place), points.size() - 2);
  const double value =
      points[below] + (place - static_cast<double>(below)) * (points[below + 1] - points[below]);
  return black + (white - black) * (value - points.front()) / (points.back() - points.front());
}

std::optional<TargetCurve> wantedCurve(const TargetInfo& target, std::optional<double> measuredLmin,
                                       std::optional<double> measuredLmax) {
  const double lmin = target.useMeasuredLmin && measuredLmin ? *measuredLmin : target.lmin;
  return TargetCurve::of(target, lmin,
                         target.lmax > 0.0 ? target.lmax : measuredLmax.value_or(0.0));
}

}  // namespace kovctl
