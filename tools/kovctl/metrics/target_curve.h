// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_TARGET_CURVE_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_TARGET_CURVE_H_

#include <optional>
#include <vector>

#include "record/run_record.h"

namespace kovctl {

/// The luminance that belongs to each level of a display function between a black and a white.
///
/// All luminances that go in and come out are the screen's own, in cd/m²; the functions that follow
/// the eye (DICOM, CIE, logarithmic) count the room's light in and leave it out again.
class TargetCurve {
 public:
  /// Nothing for a function without a curve of its own (native), and for numbers that give none: a
  /// white not above black, a negative black or ambient light, an exponent that is not positive, a
  /// user-defined curve that has fewer than two points, falls or is flat, a logarithmic curve from
  /// a black of 0.
  static std::optional<TargetCurve> of(const TargetInfo& target, double lmin, double lmax);

  /// `level` from 0 (black) to 1 (white).
  double luminance(double level) const;

 private:
  TargetCurve(const TargetInfo& target, double lmin, double lmax);

  bool isPossible() const;
  double userDefined(double level) const;

  DisplayFunction function;
  double black;
  double white;
  double ambient;
  double exponent;
  std::vector<double> points;
};

/// The curve that the target asks for: from its own lmin and lmax, or from the measured black where
/// it keeps that (and `measuredLmin` is known), to the measured white where it has no lmax.
std::optional<TargetCurve> wantedCurve(const TargetInfo& target, std::optional<double> measuredLmin,
                                       std::optional<double> measuredLmax = std::nullopt);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_TARGET_CURVE_H_
