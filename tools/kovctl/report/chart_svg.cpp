// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "report/chart.h"
#include "report/html.h"

namespace kovctl {
namespace {

using Out = std::back_insert_iterator<std::string>;

constexpr double kCircle = 3.6;
constexpr double kSquare = 2.6;
constexpr double kCross = 6.0;

/// Turns values into places in the picture; y runs upwards.
class Canvas {
 public:
  Canvas(const Chart& drawn, std::string& text) : chart(drawn), area(plotArea(drawn)), out(text) {}

  double x(double value) const {
    return area.left + chart.x.position(value) * (area.right - area.left);
  }
  double y(double value) const {
    return area.bottom - chart.y.position(value) * (area.bottom - area.top);
  }

  const Chart& chart;
  const PlotArea area;
  Out out;
};

void drawHead(Canvas& c) {
  const Chart& chart = c.chart;
  constexpr std::string_view kScales[] = {"linear", "log", "time"};
  fmt::format_to(
      c.out,
      "<svg class=\"chart-svg\" viewBox=\"0 0 {0} {1}\" role=\"img\" "
      "aria-labelledby=\"{2}-title {2}-desc\" data-x-low=\"{3:.17g}\" "
      "data-x-high=\"{4:.17g}\" data-x-scale=\"{5}\" data-y-low=\"{6:.17g}\" "
      "data-y-high=\"{7:.17g}\" data-y-scale=\"{8}\" data-left=\"{9}\" data-top=\"{10}\" "
      "data-right=\"{11}\" data-bottom=\"{12}\">\n",
      chart.width, chart.height, chart.id, chart.x.low(), chart.x.high(),
      kScales[static_cast<int>(chart.x.scale())], chart.y.low(), chart.y.high(),
      kScales[static_cast<int>(chart.y.scale())], c.area.left, c.area.top, c.area.right,
      c.area.bottom);
  fmt::format_to(c.out, "<title id=\"{0}-title\">{1}</title><desc id=\"{0}-desc\">{2}</desc>\n",
                 chart.id, escapeHtml(chart.title), escapeHtml(chart.description));
}

void drawGrid(Canvas& c) {
  fmt::format_to(c.out, "<g class=\"grid\">");
  for (const Tick& tick : c.chart.y.ticks())
    fmt::format_to(c.out,
                   "<line class=\"{}\" x1=\"{:.2f}\" x2=\"{:.2f}\" y1=\"{:.2f}\" y2=\"{:.2f}\"/>",
                   tick.label.empty() ? "minor" : "major", c.area.left, c.area.right,
                   c.y(tick.value), c.y(tick.value));
  for (const Tick& tick : c.chart.x.ticks())
    fmt::format_to(c.out,
                   "<line class=\"{}\" x1=\"{:.2f}\" x2=\"{:.2f}\" y1=\"{:.2f}\" y2=\"{:.2f}\"/>",
                   tick.label.empty() ? "minor" : "major", c.x(tick.value), c.x(tick.value),
                   c.area.top, c.area.bottom);
  fmt::format_to(c.out, "</g>\n");
}

void drawBand(Canvas& c) {
  if (!c.chart.band) return;
  const Band& band = *c.chart.band;
  const double top = std::max(c.y(band.high), c.area.top);
  const double bottom = std::min(c.y(band.low), c.area.bottom);
  fmt::format_to(c.out,
                 "<g class=\"band\" data-low=\"{0:.17g}\" data-high=\"{1:.17g}\">"
                 "<rect x=\"{2:.2f}\" y=\"{4:.2f}\" width=\"{6:.2f}\" height=\"{7:.2f}\"/>"
                 "<line x1=\"{2:.2f}\" x2=\"{3:.2f}\" y1=\"{4:.2f}\" y2=\"{4:.2f}\"/>"
                 "<line x1=\"{2:.2f}\" x2=\"{3:.2f}\" y1=\"{5:.2f}\" y2=\"{5:.2f}\"/></g>\n",
                 band.low, band.high, c.area.left, c.area.right, top, bottom,
                 c.area.right - c.area.left, bottom - top);
}

void drawRings(Canvas& c) {
  for (const Ring& ring : c.chart.rings) {
    const double x = c.x(ring.centre.x), y = c.y(ring.centre.y);
    const double radius = c.x(ring.centre.x + ring.radius) - x;
    fmt::format_to(c.out,
                   "<g class=\"ring\"><circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"{:.2f}\"/>"
                   "<text x=\"{:.2f}\" y=\"{:.2f}\">{}</text></g>\n",
                   x, y, radius, x, y - radius - 4.0, escapeHtml(ring.label));
  }
}

void drawXAxis(Canvas& c) {
  fmt::format_to(c.out, "<g class=\"axis x-axis\">");
  for (const Tick& tick : c.chart.x.ticks())
    if (!tick.label.empty())
      fmt::format_to(c.out, "<text x=\"{:.2f}\" y=\"{:.2f}\" data-value=\"{:.17g}\">{}</text>",
                     c.x(tick.value), c.area.bottom + 17.0, tick.value, escapeHtml(tick.label));
  fmt::format_to(c.out, "<text class=\"axis-label\" x=\"{:.2f}\" y=\"{:.2f}\">{}</text></g>\n",
                 0.5 * (c.area.left + c.area.right), c.area.bottom + 36.0,
                 escapeHtml(c.chart.xLabel));
}

void drawYAxis(Canvas& c) {
  fmt::format_to(c.out, "<g class=\"axis y-axis\">");
  for (const Tick& tick : c.chart.y.ticks())
    if (!tick.label.empty())
      fmt::format_to(c.out, "<text x=\"{:.2f}\" y=\"{:.2f}\" data-value=\"{:.17g}\">{}</text>",
                     c.area.left - 8.0, c.y(tick.value) + 4.0, tick.value, escapeHtml(tick.label));
  const double middle = 0.5 * (c.area.top + c.area.bottom);
  fmt::format_to(c.out,
                 "<text class=\"axis-label\" x=\"14\" y=\"{0:.2f}\" "
                 "transform=\"rotate(-90 14 {0:.2f})\">{1}</text></g>\n",
                 middle, escapeHtml(c.chart.yLabel));
}

void drawLine(Canvas& c, const Series& series, std::string_view kind) {
  if (series.points.size() < 2) return;
  fmt::format_to(c.out, "<path class=\"{}\" d=\"", kind);
  for (std::size_t i = 0; i < series.points.size(); ++i)
    fmt::format_to(c.out, "{}{:.2f} {:.2f}", i == 0 ? "M" : "L", c.x(series.points[i].x),
                   c.y(series.points[i].y));
  fmt::format_to(c.out, "\"/>");
}

void drawShape(Out out, Mark mark, double x, double y) {
  if (mark == Mark::kSquares)
    fmt::format_to(out, "<rect x=\"{0:.3f}\" y=\"{1:.3f}\" width=\"{2}\" height=\"{2}\">",
                   x - kSquare, y - kSquare, 2.0 * kSquare);
  else if (mark == Mark::kCross)
    fmt::format_to(out, "<path d=\"M{0:.3f} {1:.3f}h{4}M{2:.3f} {3:.3f}v{4}\">", x - kCross, y, x,
                   y - kCross, 2.0 * kCross);
  else
    fmt::format_to(out, "<circle cx=\"{:.3f}\" cy=\"{:.3f}\" r=\"{}\">", x, y, kCircle);
}

void closeShape(Out out, Mark mark, const std::string& note) {
  const std::string_view name = mark == Mark::kSquares ? "rect"
                                : mark == Mark::kCross ? "path"
                                                       : "circle";
  fmt::format_to(out, "<title>{}</title></{}>", escapeHtml(note), name);
}

void drawSeries(Canvas& c, const Series& series) {
  fmt::format_to(c.out, "<g class=\"series {0}\" data-series=\"{0}\">", escapeHtml(series.name));
  const bool line = series.mark == Mark::kLine || series.mark == Mark::kDashes;
  if (line || series.joined)
    drawLine(c, series, series.mark == Mark::kDashes ? "dashes" : line ? "line" : "thread");
  if (!line) {
    for (const ChartPoint& point : series.points) {
      drawShape(c.out, series.mark, c.x(point.x), c.y(point.y));
      closeShape(
          c.out, series.mark,
          point.note.empty() ? formatNumber(point.x) + ": " + formatNumber(point.y) : point.note);
    }
  }
  fmt::format_to(c.out, "</g>\n");
}

void drawLegendSample(Canvas& c, const Series& series, double x, double y) {
  fmt::format_to(c.out, "<g class=\"series {}\">", escapeHtml(series.name));
  const bool dashes = series.mark == Mark::kDashes;
  if (dashes || series.mark == Mark::kLine || series.joined)
    fmt::format_to(c.out, "<path class=\"{}\" d=\"M{:.2f} {:.2f}h22\"/>",
                   dashes          ? "dashes"
                   : series.joined ? "thread"
                                   : "line",
                   x, y);
  if (!dashes && series.mark != Mark::kLine) {
    drawShape(c.out, series.mark, x + 11.0, y);
    closeShape(c.out, series.mark, series.label);
  }
  fmt::format_to(c.out, "</g>");
}

// About how wide a text is; only used to set the legend's entries apart.
double widthOf(const std::string& text) {
  const auto characters = std::count_if(text.begin(), text.end(), [](char ch) {
    return (static_cast<unsigned char>(ch) & 0xC0) != 0x80;
  });
  return 6.3 * static_cast<double>(characters);
}

void drawLegend(Canvas& c) {
  double x = c.area.left;
  constexpr double kY = 14.0;
  fmt::format_to(c.out, "<g class=\"legend\">");
  for (const Series& series : c.chart.series) {
    drawLegendSample(c, series, x, kY);
    fmt::format_to(c.out, "<text x=\"{:.2f}\" y=\"{:.2f}\">{}</text>", x + 28.0, kY + 4.0,
                   escapeHtml(series.label));
    x += 28.0 + widthOf(series.label) + 18.0;
  }
  if (c.chart.band) {
    fmt::format_to(
        c.out,
        "<g class=\"band\"><rect x=\"{:.2f}\" y=\"{:.2f}\" width=\"22\" height=\"10\"/></g>"
        "<text x=\"{:.2f}\" y=\"{:.2f}\">{}</text>",
        x, kY - 5.0, x + 28.0, kY + 4.0, escapeHtml(c.chart.band->label));
  }
  fmt::format_to(c.out, "</g>\n");
}

}  // namespace

PlotArea plotArea(const Chart& chart) {
  return {62.0, 30.0, chart.width - 14.0, chart.height - 46.0};
}

std::string renderSvg(const Chart& chart) {
  std::string svg;
  Canvas canvas(chart, svg);
  drawHead(canvas);
  drawBand(canvas);
  drawGrid(canvas);
  drawRings(canvas);
  fmt::format_to(canvas.out,
                 "<rect class=\"frame\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"/>\n",
                 canvas.area.left, canvas.area.top, canvas.area.right - canvas.area.left,
                 canvas.area.bottom - canvas.area.top);
  drawXAxis(canvas);
  drawYAxis(canvas);
  for (const Series& series : chart.series) drawSeries(canvas, series);
  drawLegend(canvas);
  return svg + "</svg>\n";
}

}  // namespace kovctl
