// SPDX-License-Identifier: MIT
#include "metrics/lightness.h"

#include <cmath>

namespace kovctl {
namespace {

// The exact fractions that make the two branches meet.
constexpr double kThreshold = 216.0 / 24389.0;
constexpr double kSlope = 24389.0 / 27.0;

}  // namespace

double lightness(double relativeLuminance) {
  return relativeLuminance > kThreshold ? 116.0 * std::cbrt(relativeLuminance) - 16.0
                                        : kSlope * relativeLuminance;
}

double luminanceOfLightness(double lightness) {
  if (lightness <= kSlope * kThreshold) return lightness / kSlope;
  const double root = (lightness + 16.0) / 116.0;
  return root * root * root;
}

}  // namespace kovctl
