// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_CHART_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_CHART_H_

#include <optional>
#include <string>
#include <vector>

#include "report/axis.h"

namespace kovctl {

struct ChartPoint {
  double x = 0.0;
  double y = 0.0;
  std::string note;  ///< shown when the pointer rests on the mark; empty: the two numbers
};

enum class Mark { kLine, kDashes, kCircles, kSquares, kCross };

/// Marks of one kind. Colours belong to the name (style.css, charts.js): "target", "measured",
/// "native", "informing", "gray", "sensor".
struct Series {
  std::string name;
  std::string label;
  Mark mark = Mark::kCircles;
  bool joined = false;  ///< a thin line through the marks
  std::vector<ChartPoint> points;
};

/// A range of y that is allowed.
struct Band {
  double low = 0.0;
  double high = 0.0;
  std::string label;
};

/// A circle around a point in the chart's own units; only right where both axes have one unit.
struct Ring {
  ChartPoint centre;
  double radius = 0.0;
  std::string label;
};

/// A chart as data: drawn as SVG here and, where JavaScript runs, by uPlot from the same numbers.
struct Chart {
  std::string id;
  std::string title;
  std::string description;  ///< for those who cannot see it
  std::string xLabel;
  std::string yLabel;
  Axis x = Axis::linear(0.0, 1.0);
  Axis y = Axis::linear(0.0, 1.0);
  std::vector<Series> series;
  std::optional<Band> band;
  std::vector<Ring> rings;
  double width = 490.0;  ///< half a page; a wide one has the whole page
  double height = 300.0;
  bool levels = false;  ///< x is a gray level, marked in fifteens
  bool interactive = true;
};

/// Where the drawing area lies inside the picture.
struct PlotArea {
  double left;
  double top;
  double right;
  double bottom;
};
PlotArea plotArea(const Chart& chart);

/// An svg element. Its root carries the ranges of the axes and the drawing area as data-…
/// attributes, each series is a group with data-series and each mark lies at its value's place, so
/// that the values can be read back from the picture.
std::string renderSvg(const Chart& chart);

/// The same charts for charts.js, as JSON.
std::string chartsJson(const std::vector<Chart>& charts);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_CHART_H_
