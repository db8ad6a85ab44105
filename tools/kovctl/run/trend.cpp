// SPDX-License-Identifier: MIT
#include "run/trend.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace kovctl {
namespace {

std::string sparkLine(const std::vector<TrendPoint>& points) {
  constexpr const char* kBars[] = {"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
  const auto [low, high] =
      std::minmax_element(points.begin(), points.end(),
                          [](const auto& a, const auto& b) { return a.second < b.second; });
  const double range = high->second - low->second;
  std::string line;
  for (const auto& [hours, value] : points) {
    const double share = range > 0.0 ? (value - low->second) / range : 0.5;
    line += kBars[static_cast<std::size_t>(std::lround(share * 7.0))];
  }
  return line;
}

}  // namespace

std::map<int, std::vector<TrendPoint>> sensorPoints(
    const std::vector<lumora::kov::KovCalibrationHisInfo>& entries) {
  std::map<int, std::vector<TrendPoint>> tables;
  for (const auto& entry : entries) {
    if (entry.backlightSensorValue == 0) continue;
    tables[entry.lutNumber - 1].emplace_back(entry.run.workingHours, entry.backlightSensorValue);
  }
  // The monitor lists the newest first; what happened within one hour keeps its order in time.
  for (auto& [lut, points] : tables) {
    std::reverse(points.begin(), points.end());
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
  }
  return tables;
}

std::optional<Trend> trendOf(const std::vector<TrendPoint>& points) {
  if (points.size() < 2) return std::nullopt;
  const auto count = static_cast<double>(points.size());
  double meanHours = 0.0;
  double meanValue = 0.0;
  for (const auto& [hours, value] : points) {
    meanHours += hours / count;
    meanValue += value / count;
  }
  double spread = 0.0;
  double product = 0.0;
  for (const auto& [hours, value] : points) {
    spread += (hours - meanHours) * (hours - meanHours);
    product += (hours - meanHours) * (value - meanValue);
  }
  Trend trend{static_cast<int>(points.size()), points.front().second, points.back().second, {}};
  if (spread > 0.0) trend.perThousandHours = 1000.0 * product / spread;
  return trend;
}

std::string trendText(const Trend& trend, const std::vector<TrendPoint>& points) {
  std::string text = fmt::format("{} backlight sensor {:g} → {:g} over {} calibrations",
                                 sparkLine(points), trend.first, trend.last, trend.points);
  if (trend.perThousandHours) text += fmt::format(", {:+.1f} per 1000 h", *trend.perThousandHours);
  return text;
}

}  // namespace kovctl
