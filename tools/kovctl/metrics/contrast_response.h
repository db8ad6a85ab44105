// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_CONTRAST_RESPONSE_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_CONTRAST_RESPONSE_H_

#include <optional>
#include <vector>

#include "metrics/target_curve.h"
#include "record/run_record.h"

namespace kovctl {

/// A gray level and the screen's own luminance at it.
struct GrayPoint {
  int level = 0;  ///< 0 to 255
  double luminance = 0.0;
};

/// What happens between two neighbouring measured levels.
struct ContrastStep {
  int below = 0;
  int above = 0;
  double measured = 0.0;            ///< 2 (L2 − L1) / (L2 + L1), room light included
  std::optional<double> expected;   ///< of the display function; absent: it has none here
  std::optional<double> deviation;  ///< measured / expected − 1
  double jndPerLevel = 0.0;         ///< just noticeable differences for each gray level

  double middle() const { return 0.5 * (below + above); }
};

struct ContrastResponse {
  std::vector<ContrastStep> steps;
  std::optional<double> largestDeviation;  ///< without its sign; absent: no step has one
};

/// AAPM On-line Report 03 (TG-18) compares the contrast of neighbouring levels with what the
/// display function has between the same levels, spanned between the measured black and white with
/// the room's light. Their quotient does not change when both are divided by the step in JND.
///
/// `points` rise by level and have 0 and 255 at their ends; `target` says function and room light.
ContrastResponse contrastResponse(const std::vector<GrayPoint>& points, const TargetInfo& target);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_CONTRAST_RESPONSE_H_
