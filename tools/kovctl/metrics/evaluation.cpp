// SPDX-License-Identifier: MIT
#include "metrics/evaluation.h"

#include <algorithm>
#include <map>

namespace kovctl {
namespace {

constexpr int kWhiteLevel = 255;

struct Mean {
  double luminance = 0.0;
  double x = 0.0;
  double y = 0.0;
  int count = 0;
  int colours = 0;
};

using Levels = std::map<int, Mean>;

Levels meansOf(const RunRecord& record, PatchRole role) {
  Levels levels;
  for (const PatchResult& patch : record.patches) {
    if (patch.role != role || patch.r != patch.g || patch.g != patch.b) continue;
    Mean& mean = levels[patch.r];
    mean.luminance += patch.luminance;
    ++mean.count;
    // A meter that measures no colour may answer 0, 0, which is no colour.
    if (!patch.chromaticity || patch.chromaticity->y <= 0.0) continue;
    mean.x += patch.chromaticity->x;
    mean.y += patch.chromaticity->y;
    ++mean.colours;
  }
  return levels;
}

std::vector<GrayPoint> pointsOf(const Levels& levels) {
  std::vector<GrayPoint> points;
  // A meter's noise may carry a black below zero, where there is no light and no display function.
  for (const auto& [level, mean] : levels)
    points.push_back({level, std::max(0.0, mean.luminance / mean.count)});
  return points;
}

bool spansRange(const std::vector<GrayPoint>& points) {
  return points.size() >= 2 && points.front().level == 0 && points.back().level == kWhiteLevel;
}

std::vector<GrayPoint> decidingPoints(const std::vector<GrayPoint>& points) {
  std::vector<GrayPoint> chosen;
  std::copy_if(points.begin(), points.end(), std::back_inserter(chosen),
               [](const GrayPoint& p) { return p.level % kDecidingStep == 0; });
  return chosen;
}

void evaluateLuminance(const TargetInfo& target, Evaluation& result) {
  for (const GrayPoint& point : result.measured) {
    if (point.level == 0) result.lmin = point.luminance;
    if (point.level == kWhiteLevel) result.lmax = point.luminance;
  }
  if (result.lmax && target.lmax > 0.0) result.lmaxDeviation = *result.lmax / target.lmax - 1.0;
  if (result.lmin && target.lmin > 0.0 && !target.useMeasuredLmin)
    result.lminDeviation = *result.lmin / target.lmin - 1.0;
  const double ambient = target.ambient.value_or(0.0);
  if (result.lmax && result.lmin && *result.lmin + ambient > 0.0)
    result.luminanceRatio = (*result.lmax + ambient) / (*result.lmin + ambient);
  // A room without any light has no part in the image: whoever says 0 has measured none.
  if (ambient > 0.0 && result.lmin && *result.lmin > 0.0)
    result.ambientRatio = *target.ambient / *result.lmin;
}

void evaluateContrast(const TargetInfo& target, Evaluation& result) {
  const std::vector<GrayPoint> deciding = decidingPoints(result.measured);
  if (deciding.size() == kDecidingPoints) result.deciding = contrastResponse(deciding, target);
  if (spansRange(result.measured) && result.measured.size() > kDecidingPoints)
    result.informing = contrastResponse(result.measured, target);
}

void evaluateColour(const RunRecord& record, const Levels& levels, Evaluation& result) {
  if (record.target.white) result.targetWhite = uniform(*record.target.white);
  for (const auto& [level, mean] : levels) {
    if (mean.colours == 0) continue;
    const UniformChromaticity colour = uniform({mean.x / mean.colours, mean.y / mean.colours});
    result.grayColours.push_back({level, mean.luminance / mean.count, colour, std::nullopt});
    if (level == kWhiteLevel) result.white = colour;
  }
  if (!result.white) return;
  if (result.targetWhite) result.whiteDistance = distance(*result.white, *result.targetWhite);
  for (GrayColour& gray : result.grayColours) {
    if (gray.luminance < kDarkestTrackedGray) continue;
    gray.fromWhite = distance(gray.colour, *result.white);
    result.largestGrayDistance =
        std::max(result.largestGrayDistance.value_or(0.0), *gray.fromWhite);
  }
}

}  // namespace

Evaluation evaluate(const RunRecord& record) {
  Evaluation result;
  result.isLibrarysOwn = record.checkPoints == 0 && record.kind == RunKind::kCalibrate;
  const Levels levels =
      meansOf(record, result.isLibrarysOwn ? PatchRole::kLibraryVerify : PatchRole::kVerify);
  result.measured = pointsOf(levels);
  result.native = pointsOf(meansOf(record, PatchRole::kGray));
  evaluateLuminance(record.target, result);
  evaluateContrast(record.target, result);
  evaluateColour(record, levels, result);
  return result;
}

}  // namespace kovctl
