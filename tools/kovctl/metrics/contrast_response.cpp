// SPDX-License-Identifier: MIT
#include "metrics/contrast_response.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "metrics/gsdf.h"

namespace kovctl {
namespace {

constexpr double kWhiteLevel = 255.0;

// Below this a display function is flat and says nothing about contrast.
constexpr double kSmallestContrast = 1e-9;

double contrast(double below, double above) {
  const double sum = above + below;
  return sum > 0.0 ? 2.0 * (above - below) / sum : 0.0;
}

ContrastStep step(const GrayPoint& below, const GrayPoint& above,
                  const std::optional<TargetCurve>& curve, double ambient) {
  ContrastStep result;
  result.below = below.level;
  result.above = above.level;
  result.measured = contrast(below.luminance + ambient, above.luminance + ambient);
  result.jndPerLevel =
      (gsdfIndex(above.luminance + ambient) - gsdfIndex(below.luminance + ambient)) /
      (above.level - below.level);
  if (!curve) return result;
  const double expected = contrast(curve->luminance(below.level / kWhiteLevel) + ambient,
                                   curve->luminance(above.level / kWhiteLevel) + ambient);
  if (expected < kSmallestContrast) return result;
  result.expected = expected;
  result.deviation = result.measured / expected - 1.0;
  return result;
}

}  // namespace

ContrastResponse contrastResponse(const std::vector<GrayPoint>& points, const TargetInfo& target) {
  ContrastResponse response;
  if (points.size() < 2) return response;
  const double ambient = target.ambient.value_or(0.0);
  const auto curve = TargetCurve::of(target, points.front().luminance, points.back().luminance);
  for (std::size_t i = 1; i < points.size(); ++i) {
    response.steps.push_back(step(points[i - 1], points[i], curve, ambient));
    if (const auto deviation = response.steps.back().deviation)
      response.largestDeviation =
          std::max(response.largestDeviation.value_or(0.0), std::abs(*deviation));
  }
  return response;
}

}  // namespace kovctl
