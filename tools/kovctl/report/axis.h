// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_AXIS_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_AXIS_H_

#include <optional>
#include <string>
#include <vector>

namespace kovctl {

struct Tick {
  double value = 0.0;
  std::string label;  ///< empty: a line without a number
};

enum class Scale { kLinear, kLogarithmic, kTime };

/// One axis of a chart: its range and the values marked on it.
class Axis {
 public:
  /// Widened to round numbers, with about `ticks` steps of 1, 2 or 5 times a power of ten.
  static Axis linear(double low, double high, int ticks = 6);

  /// Exactly from `low` to `high`, a tick at every multiple of `step`, a label at every
  /// `labelEvery`th.
  static Axis fixed(double low, double high, double step, int labelEvery = 1);

  /// Widened to 1, 2 or 5 times a power of ten; those are labelled, the rest are lines. A
  /// range of nothing is widened; values outside 1e-9 to 1e12 have no place on it.
  static Axis logarithmic(double low, double high);

  /// Seconds since 1970 (UTC), with minutes, days, months or years marked.
  static Axis time(double low, double high);

  /// 0 at the low end, 1 at the high end.
  double position(double value) const;

  double low() const { return from; }
  double high() const { return to; }
  Scale scale() const { return kind; }
  const std::vector<Tick>& ticks() const { return marks; }

 private:
  static Axis timeOfDay(double low, double high);

  Axis(Scale scale, double low, double high) : kind(scale), from(low), to(high) {}

  Scale kind;
  double from;
  double to;
  std::vector<Tick> marks;
};

/// The smallest of 1, 2 and 5 times a power of ten that is not below `value`, which is positive.
double roundStep(double value);

/// A number as short as can be with at most six significant digits, with a true minus sign.
std::string formatNumber(double value);

/// A share as a difference in per cent, with its sign; empty where there is none.
std::string percentText(const std::optional<double>& share);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_AXIS_H_
