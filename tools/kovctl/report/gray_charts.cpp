// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "metrics/target_curve.h"
#include "report/run_charts.h"

namespace kovctl {
namespace {

constexpr double kWhiteLevel = 255.0;

Axis levelAxis() {
  return Axis::fixed(0.0, kWhiteLevel, 15.0, 2);
}
Axis wideLevelAxis() {
  return Axis::fixed(0.0, kWhiteLevel, 15.0);
}

// In cd/m²; a logarithmic axis has no place for 0, and nothing that is measured lies beyond.
bool isDrawable(double luminance) {
  return luminance >= 1e-6 && luminance <= 1e7;
}

Series targetSeries(const RunRecord& record, const Evaluation& evaluation) {
  Series series{"target", "Target", Mark::kDashes, false, {}};
  const auto curve = wantedCurve(record.target, evaluation.lmin, evaluation.lmax);
  if (!curve) return series;
  for (int level = 0; level <= 255; ++level) {
    const double luminance = curve->luminance(level / kWhiteLevel);
    if (isDrawable(luminance)) series.points.push_back({static_cast<double>(level), luminance, {}});
  }
  return series;
}

Series pointSeries(std::string name, std::string label, Mark mark,
                   const std::vector<GrayPoint>& points) {
  Series series{std::move(name), std::move(label), mark, true, {}};
  for (const GrayPoint& point : points)
    if (isDrawable(point.luminance))
      series.points.push_back(
          {static_cast<double>(point.level), point.luminance,
           fmt::format("Level {}: {:.4g} cd/m²", point.level, point.luminance)});
  return series;
}

void keepDrawable(Chart& chart) {
  std::erase_if(chart.series, [](const Series& s) { return s.points.empty(); });
}

struct Extent {
  double low;
  double high;
};

Extent extentOfY(const Chart& chart) {
  Extent extent{chart.series.front().points.front().y, chart.series.front().points.front().y};
  for (const Series& series : chart.series)
    for (const ChartPoint& point : series.points)
      extent = {std::min(extent.low, point.y), std::max(extent.high, point.y)};
  return extent;
}

Series deviationSeries(std::string name, std::string label, Mark mark,
                       const ContrastResponse& response) {
  Series series{std::move(name), std::move(label), mark, true, {}};
  for (const ContrastStep& step : response.steps)
    if (step.deviation)
      series.points.push_back({step.middle(), *step.deviation * 100.0,
                               fmt::format("Level {} to {}: {:+.2f} %", step.below, step.above,
                                           *step.deviation * 100.0)});
  return series;
}

Series jndSeries(std::string name, std::string label, Mark mark, const ContrastResponse& response) {
  Series series{std::move(name), std::move(label), mark, true, {}};
  for (const ContrastStep& step : response.steps)
    series.points.push_back({step.middle(), step.jndPerLevel,
                             fmt::format("Level {} to {}: {:.3f} JND per level", step.below,
                                         step.above, step.jndPerLevel)});
  return series;
}

// The same number of JND for every level is what the DICOM function aims at.
Series meanJnd(const ContrastResponse& response) {
  double sum = 0.0;
  for (const ContrastStep& step : response.steps)
    sum += step.jndPerLevel * (step.above - step.below);
  const double mean = sum / kWhiteLevel;
  return {"target", "Mean", Mark::kDashes, false, {{0.0, mean, {}}, {kWhiteLevel, mean, {}}}};
}

}  // namespace

std::optional<Chart> luminanceChart(const RunRecord& record, const Evaluation& evaluation) {
  Chart chart;
  chart.id = "luminance";
  chart.title = "Luminance";
  chart.xLabel = "Gray level";
  chart.levels = true;
  chart.yLabel = "Luminance, cd/m²";
  chart.width = 980.0;
  chart.height = 400.0;
  chart.x = wideLevelAxis();
  chart.series = {
      targetSeries(record, evaluation),
      pointSeries("native", "Native (before calibration)", Mark::kSquares, evaluation.native),
      pointSeries("measured", "Measured", Mark::kCircles, evaluation.measured)};
  keepDrawable(chart);
  if (chart.series.empty()) return std::nullopt;
  const Extent extent = extentOfY(chart);
  chart.y = Axis::logarithmic(extent.low, extent.high);
  chart.description = fmt::format(
      "Luminance against gray level on a logarithmic axis, from {:.4g} to {:.4g} cd/m². The values "
      "are in the table of points.",
      extent.low, extent.high);
  return chart;
}

std::optional<Chart> deviationChart(const Evaluation& evaluation, const Verdict& verdict) {
  Chart chart;
  chart.id = "deviation";
  chart.title = "Contrast response, deviation from target";
  chart.xLabel = "Gray level";
  chart.levels = true;
  chart.yLabel = "Deviation, %";
  chart.x = levelAxis();
  if (evaluation.informing)
    chart.series.push_back(deviationSeries(
        "informing", fmt::format("{} inform", evaluation.informing->steps.size() + 1),
        Mark::kSquares, *evaluation.informing));
  if (evaluation.deciding)
    chart.series.push_back(
        deviationSeries("measured", "18 decide", Mark::kCircles, *evaluation.deciding));
  keepDrawable(chart);
  if (chart.series.empty()) return std::nullopt;
  const Extent extent = extentOfY(chart);
  double reach = std::max(std::abs(extent.low), std::abs(extent.high));
  if (const auto& limit = verdict.criteria.front().limit) {
    const double tolerance = limit->value * 100.0;
    chart.band = Band{-tolerance, tolerance, fmt::format("Tolerance ±{:.3g} %", tolerance)};
    reach = std::max(reach, tolerance * 1.2);
  }
  chart.y = Axis::linear(-reach, reach, 8);
  chart.description = fmt::format(
      "Deviation of the contrast between neighbouring levels, from {:.2f} % to {:.2f} %.",
      extent.low, extent.high);
  return chart;
}

std::optional<Chart> jndChart(const Evaluation& evaluation) {
  Chart chart;
  chart.id = "jnd";
  chart.title = "Just noticeable differences per level";
  chart.xLabel = "Gray level";
  chart.levels = true;
  chart.yLabel = "JND per gray level";
  chart.x = levelAxis();
  if (evaluation.deciding) chart.series.push_back(meanJnd(*evaluation.deciding));
  if (evaluation.informing)
    chart.series.push_back(
        jndSeries("informing", fmt::format("{} points", evaluation.informing->steps.size() + 1),
                  Mark::kSquares, *evaluation.informing));
  if (evaluation.deciding)
    chart.series.push_back(
        jndSeries("measured", "18 points", Mark::kCircles, *evaluation.deciding));
  keepDrawable(chart);
  if (chart.series.empty()) return std::nullopt;
  const Extent extent = extentOfY(chart);
  chart.y = Axis::linear(std::min(0.0, extent.low), extent.high * 1.1);
  chart.description = fmt::format(
      "JND per gray level between neighbouring levels, {:.2f} to {:.2f}.", extent.low, extent.high);
  return chart;
}

}  // namespace kovctl
