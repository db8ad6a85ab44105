// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_EVALUATION_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_EVALUATION_H_

#include <optional>
#include <vector>

#include "metrics/colour.h"
#include "metrics/contrast_response.h"
#include "record/run_record.h"

namespace kovctl {

/// The levels that decide: 18, every 15th (AAPM On-line Report 03, TG-18).
inline constexpr int kDecidingStep = 15;
inline constexpr int kDecidingPoints = 18;
/// As many as a check measures to inform, those 18 among them.
inline constexpr int kInformingPoints = 52;

/// Gray this dark is left out of gray tracking: there a meter's colour is mostly noise. cd/m².
inline constexpr double kDarkestTrackedGray = 5.0;

struct GrayColour {
  int level = 0;
  double luminance = 0.0;
  UniformChromaticity colour;
  std::optional<double> fromWhite;  ///< Δu′v′ from the white measured; absent below the limit
};

/// What a run's measurements amount to. Whatever could not be measured is absent; a luminance below
/// zero, which is noise, counts as 0.
struct Evaluation {
  std::vector<GrayPoint> native;    ///< by level; only of a calibration
  std::vector<GrayPoint> measured;  ///< by level; the mean where a level was measured repeatedly
  bool isLibrarysOwn = false;  ///< `measured` is the library's verification, for want of a check
  std::optional<double> lmax;  ///< the screen's own white
  std::optional<double> lmin;  ///< the screen's own black
  std::optional<double> lmaxDeviation;        ///< from the target, as a share, with its sign
  std::optional<double> lminDeviation;        ///< likewise; absent when the target keeps any black
  std::optional<double> luminanceRatio;       ///< white to black, room light included
  std::optional<double> ambientRatio;         ///< room light to black
  std::optional<ContrastResponse> deciding;   ///< over the 18 points; absent: not all were measured
  std::optional<ContrastResponse> informing;  ///< over more points than 18
  std::optional<UniformChromaticity> white;
  std::optional<UniformChromaticity> targetWhite;
  std::optional<double> whiteDistance;  ///< Δu′v′ from the target
  std::vector<GrayColour> grayColours;
  std::optional<double> largestGrayDistance;  ///< of the tracked grays
};

Evaluation evaluate(const RunRecord& record);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_EVALUATION_H_
