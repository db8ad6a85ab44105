// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_TREND_H_
#define L5KOV_TOOLS_KOVCTL_RUN_TREND_H_

#include <l5kov.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kovctl {

/// Working hours and what the backlight sensor read then.
using TrendPoint = std::pair<double, double>;

struct Trend {
  int points = 0;
  double first = 0.0;
  double last = 0.0;
  std::optional<double>
      perThousandHours;  ///< slope of the best straight line; absent: no time passed
};

/// By look-up table, counted from 0, in the order of working hours; entries without a sensor
/// reading are left out.
std::map<int, std::vector<TrendPoint>> sensorPoints(
    const std::vector<lumora::kov::KovCalibrationHisInfo>& entries);

/// Nothing for fewer than two points.
std::optional<Trend> trendOf(const std::vector<TrendPoint>& points);

/// "▇▆▅ backlight sensor 1000 → 940 over 3 calibrations, -12.0 per 1000 h".
std::string trendText(const Trend& trend, const std::vector<TrendPoint>& points);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_TREND_H_
