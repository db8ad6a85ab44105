// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "report/history_view.h"
#include "report/run_charts.h"

namespace kovctl {
namespace {

// The reach of the picture in u′v′ around its middle, at least; and its rings, which are a scale
// and no limit.
constexpr double kSmallestReach = 0.012;
constexpr double kRings[] = {0.005, 0.010};

ChartPoint colourPoint(const UniformChromaticity& colour, const std::string& what) {
  return {colour.u, colour.v, fmt::format("{}: u′ {:.4f}, v′ {:.4f}", what, colour.u, colour.v)};
}

double reachOf(const Chart& chart, const ChartPoint& centre) {
  double reach = kSmallestReach;
  for (const Series& series : chart.series)
    for (const ChartPoint& point : series.points)
      reach = std::max(
          {reach, 1.15 * std::abs(point.x - centre.x), 1.15 * std::abs(point.y - centre.y)});
  return reach;
}

// Both axes get the same number of units for a millimetre, so that circles are circles.
void setColourAxes(Chart& chart, const ChartPoint& centre, double reach) {
  const PlotArea area = plotArea(chart);
  const double stretch = (area.right - area.left) / (area.bottom - area.top);
  const double step = roundStep(reach / 3.0);
  chart.x = Axis::fixed(centre.x - reach * stretch, centre.x + reach * stretch, step);
  chart.y = Axis::fixed(centre.y - reach, centre.y + reach, step);
}

Series grays(const Evaluation& evaluation) {
  Series series{"gray", "Grays (from 5 cd/m²)", Mark::kSquares, false, {}};
  for (const GrayColour& gray : evaluation.grayColours)
    if (gray.fromWhite && gray.level != 255)
      series.points.push_back(colourPoint(gray.colour, fmt::format("Level {}", gray.level)));
  return series;
}

using Value = std::optional<double> (*)(const HistoryPoint&);

Series trendSeries(const std::vector<HistoryPoint>& history, std::string name, std::string label,
                   Mark mark, bool joined, Value value, std::string_view unit) {
  Series series{std::move(name), std::move(label), mark, joined, {}};
  for (const HistoryPoint& point : history) {
    const auto moment = momentOf(point.time);
    const auto y = value(point);
    if (moment && y)
      series.points.push_back({*moment, *y, fmt::format("{}: {:.6g}{}", point.time, *y, unit)});
  }
  return series;
}

// One point is no trend.
bool setTrendAxes(Chart& chart) {
  std::erase_if(chart.series, [](const Series& s) { return s.points.empty(); });
  std::vector<double> xs, ys;
  std::size_t longest = 0;
  for (const Series& series : chart.series) {
    longest = std::max(longest, series.points.size());
    for (const ChartPoint& point : series.points) {
      xs.push_back(point.x);
      ys.push_back(point.y);
    }
  }
  if (longest < 2) return false;
  const auto [x0, x1] = std::minmax_element(xs.begin(), xs.end());
  const auto [y0, y1] = std::minmax_element(ys.begin(), ys.end());
  chart.x = Axis::time(*x0, *x1);
  const double margin = 0.08 * (*y1 - *y0);
  chart.y = Axis::linear(*y0 - margin, *y1 + margin, 5);
  return true;
}

}  // namespace

std::optional<Chart> whitePointChart(const Evaluation& evaluation) {
  if (!evaluation.white) return std::nullopt;
  Chart chart;
  chart.id = "white-point";
  chart.title = "White point and grays in u′v′";
  chart.xLabel = "u′";
  chart.yLabel = "v′";
  chart.interactive = false;
  chart.series.push_back(grays(evaluation));
  if (evaluation.targetWhite)
    chart.series.push_back(Series{
        "target", "Target", Mark::kCross, false, {colourPoint(*evaluation.targetWhite, "Target")}});
  chart.series.push_back(Series{
      "measured", "White", Mark::kCircles, false, {colourPoint(*evaluation.white, "White")}});
  std::erase_if(chart.series, [](const Series& s) { return s.points.empty(); });
  const UniformChromaticity middle = evaluation.targetWhite.value_or(*evaluation.white);
  const ChartPoint centre{middle.u, middle.v, {}};
  setColourAxes(chart, centre, reachOf(chart, centre));
  for (const double radius : kRings)
    chart.rings.push_back({centre, radius, fmt::format("{:.3f}", radius)});
  chart.description =
      fmt::format("White at u′ {:.4f}, v′ {:.4f}{}. Rings at Δu′v′ 0.005 and 0.010 show the scale.",
                  evaluation.white->u, evaluation.white->v,
                  evaluation.whiteDistance
                      ? fmt::format(", Δu′v′ {:.4f} from the target", *evaluation.whiteDistance)
                      : std::string());
  return chart;
}

std::optional<Chart> luminanceTrend(const std::vector<HistoryPoint>& history) {
  Chart chart;
  chart.id = "trend-luminance";
  chart.title = "Maximum luminance over time";
  chart.xLabel = "Date";
  chart.yLabel = "Luminance, cd/m²";
  chart.series = {trendSeries(
                      history, "target", "Target", Mark::kDashes, false,
                      [](const HistoryPoint& p) { return p.targetLmax; }, " cd/m²"),
                  trendSeries(
                      history, "measured", "Measured", Mark::kCircles, true,
                      [](const HistoryPoint& p) { return p.measuredLmax; }, " cd/m²")};
  if (!setTrendAxes(chart)) return std::nullopt;
  chart.description = "Maximum luminance of this and earlier runs; the values are in the table.";
  return chart;
}

std::optional<Chart> sensorTrend(const std::vector<HistoryPoint>& history) {
  Chart chart;
  chart.id = "trend-sensor";
  chart.title = "Backlight sensor over time";
  chart.xLabel = "Date";
  chart.yLabel = "Sensor reading";
  const Value reading = [](const HistoryPoint& p) -> std::optional<double> {
    return p.photoSensor ? std::optional<double>(*p.photoSensor) : std::nullopt;
  };
  chart.series = {
      trendSeries(history, "sensor", "Backlight sensor", Mark::kCircles, true, reading, "")};
  if (!setTrendAxes(chart)) return std::nullopt;
  chart.description = "Backlight sensor reading of this and earlier runs; values in the table.";
  return chart;
}

}  // namespace kovctl
