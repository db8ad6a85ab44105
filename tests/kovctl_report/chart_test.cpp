// SPDX-License-Identifier: MIT
#include "report/chart.h"

#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>
#include <vector>

#include "report/axis.h"
#include "report/history_view.h"
#include "report/run_charts.h"
#include "sample_record.h"

namespace kovctl {
namespace {

std::string labels(const Axis& axis) {
  std::string text;
  for (const Tick& tick : axis.ticks())
    if (!tick.label.empty()) text += tick.label + " ";
  return text;
}

TEST(Axis, LinearTicksAreRound) {
  EXPECT_EQ(labels(Axis::linear(0.0, 2.44)), "0 0.5 1 1.5 2 2.5 ");
  EXPECT_EQ(labels(Axis::linear(-12.0, 12.0, 8)), "−15 −10 −5 0 5 10 15 ");
  EXPECT_EQ(labels(Axis::linear(249.1, 251.3, 5)), "249 249.5 250 250.5 251 251.5 ");
  const Axis axis = Axis::linear(3.0, 97.0);
  EXPECT_EQ(axis.low(), 0.0);
  EXPECT_EQ(axis.high(), 100.0);
}

TEST(Axis, ARangeOfNothingIsWidened) {
  for (const double value : {0.0, 5.0, -300.0}) {
    const Axis axis = Axis::linear(value, value);
    EXPECT_LT(axis.low(), value);
    EXPECT_GT(axis.high(), value);
    EXPECT_GE(axis.ticks().size(), 2U);
  }
  const Axis axis = Axis::logarithmic(1.0, 1.0);
  EXPECT_LT(axis.low(), 1.0);
  EXPECT_GT(axis.high(), 1.0);
}

TEST(Axis, LogarithmicTicksAreOneTwoFive) {
  const Axis axis = Axis::logarithmic(0.34, 332.0);
  EXPECT_EQ(labels(axis), "0.2 0.5 1 2 5 10 20 50 100 200 500 ");
  EXPECT_NEAR(axis.position(std::sqrt(0.2 * 500.0)), 0.5, 1e-12);
  EXPECT_EQ(axis.position(0.2), 0.0);
  EXPECT_EQ(axis.position(500.0), 1.0);
  EXPECT_EQ(labels(Axis::logarithmic(1.0, 1000.0)), "1 2 5 10 20 50 100 200 500 1000 ");
  EXPECT_EQ(labels(Axis::logarithmic(0.001, 1000.0)), "0.001 0.01 0.1 1 10 100 1000 ");
}

TEST(Axis, FixedTicksAreMultiples) {
  EXPECT_EQ(labels(Axis::fixed(0.0, 255.0, 15.0, 2)), "0 30 60 90 120 150 180 210 240 ");
  EXPECT_EQ(Axis::fixed(0.0, 255.0, 15.0).ticks().size(), 18U);
}

TEST(Axis, TimeTicksAreDates) {
  EXPECT_EQ(labels(Axis::time(1795219200.0, 1795478400.0)),
            "2026-11-21 2026-11-22 2026-11-23 2026-11-24 ");
  EXPECT_LE(Axis::time(0.0, 2e9).ticks().size(), 6U);
  EXPECT_EQ(labels(Axis::time(951782400.0, 951782400.0)), "2000-02-28 2000-02-29 2000-03-01 ");
}

TEST(Axis, NumbersAreShort) {
  EXPECT_EQ(formatNumber(0.1 + 0.2), "0.3");
  EXPECT_EQ(formatNumber(-5.0), "−5");
  EXPECT_EQ(formatNumber(-0.0), "0");
  EXPECT_EQ(formatNumber(1e6), "1e+06");
}

// Reads a picture as a program that has only the SVG would.
class Picture {
 public:
  explicit Picture(std::string text) : svg(std::move(text)) {}

  double number(const std::string& attribute) const { return std::stod(this->text(attribute)); }
  std::string text(const std::string& attribute) const {
    std::smatch match;
    EXPECT_TRUE(std::regex_search(svg, match, std::regex(attribute + "=\"([^\"]*)\"")))
        << attribute;
    return match[1];
  }

  double xOf(double place) const {
    const double share =
        (place - number("data-left")) / (number("data-right") - number("data-left"));
    return number("data-x-low") + share * (number("data-x-high") - number("data-x-low"));
  }
  double yOf(double place) const {
    const double share =
        (number("data-bottom") - place) / (number("data-bottom") - number("data-top"));
    const double low = number("data-y-low"), high = number("data-y-high");
    if (text("data-y-scale") == "log") return low * std::pow(high / low, share);
    return low + share * (high - low);
  }

  std::vector<ChartPoint> circles(const std::string& series) const {
    const std::size_t begin = svg.find("data-series=\"" + series + "\"");
    const std::string group = svg.substr(begin, svg.find("</g>", begin) - begin);
    const std::regex circle("<circle cx=\"([0-9.]+)\" cy=\"([0-9.]+)\"");
    std::vector<ChartPoint> points;
    for (std::sregex_iterator i(group.begin(), group.end(), circle), end; i != end; ++i)
      points.push_back({xOf(std::stod((*i)[1])), yOf(std::stod((*i)[2])), {}});
    return points;
  }

  const std::string svg;
};

TEST(LuminanceChart, ShowsTheMeasuredValuesAtTheirPlaces) {
  const RunRecord record = test::sampleCalibration();
  const Evaluation evaluation = evaluate(record);
  const Picture picture(renderSvg(*luminanceChart(record, evaluation)));
  const auto points = picture.circles("measured");
  ASSERT_EQ(points.size(), 18U);
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(points[i].x, evaluation.measured[i].level, 0.01);
    EXPECT_NEAR(points[i].y / evaluation.measured[i].luminance, 1.0, 1e-4);
  }
  EXPECT_EQ(picture.text("data-y-scale"), "log");
  EXPECT_NE(picture.svg.find("data-series=\"native\""), std::string::npos);
  EXPECT_NE(picture.svg.find("data-series=\"target\""), std::string::npos);
}

TEST(LuminanceChart, LabelsOfTheAxisStandAtTheirValues) {
  const RunRecord record = test::sampleCalibration();
  const Picture picture(renderSvg(*luminanceChart(record, evaluate(record))));
  const std::size_t begin = picture.svg.find("axis y-axis");
  const std::string axis = picture.svg.substr(begin, picture.svg.find("</g>", begin) - begin);
  const std::regex label(
      "<text x=\"[0-9.]+\" y=\"([0-9.]+)\" data-value=\"([0-9.e+-]+)\">([^<]+)<");
  int labels = 0;
  for (std::sregex_iterator i(axis.begin(), axis.end(), label), end; i != end; ++i, ++labels) {
    const double value = std::stod((*i)[3]);
    EXPECT_NEAR(value, std::stod((*i)[2]), 1e-9);
    EXPECT_NEAR(picture.yOf(std::stod((*i)[1]) - 4.0) / value, 1.0, 2e-3);  // 4: text baseline
  }
  EXPECT_EQ(labels, 11);
}

TEST(DeviationChart, ShowsValuesAndToleranceBand) {
  const RunRecord record = test::sampleVerification();
  const Evaluation evaluation = evaluate(record);
  const Chart chart = *deviationChart(evaluation, judge(record, evaluation));
  const Picture picture(renderSvg(chart));
  EXPECT_NEAR(picture.number("data-low"), -10.0, 1e-9);
  EXPECT_NEAR(picture.number("data-high"), 10.0, 1e-9);
  std::smatch band;
  ASSERT_TRUE(std::regex_search(picture.svg, band,
                                std::regex("<rect x=\"[0-9.]+\" y=\"([0-9.]+)\" width=\"[0-9.]+\" "
                                           "height=\"([0-9.]+)\"/>")));
  EXPECT_NEAR(picture.yOf(std::stod(band[1])), 10.0, 0.05);
  EXPECT_NEAR(picture.yOf(std::stod(band[1]) + std::stod(band[2])), -10.0, 0.05);
  const auto points = picture.circles("measured");
  ASSERT_EQ(points.size(), 17U);
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(points[i].x, evaluation.deciding->steps[i].middle(), 0.01);
    EXPECT_NEAR(points[i].y, *evaluation.deciding->steps[i].deviation * 100.0, 0.01);
  }
  EXPECT_NE(picture.svg.find("data-series=\"informing\""), std::string::npos);
}

TEST(DeviationChart, HasNoBandWithoutALimit) {
  RunRecord record = test::sampleCalibration();
  record.limitsProfile.clear();
  const Evaluation evaluation = evaluate(record);
  EXPECT_FALSE(deviationChart(evaluation, judge(record, evaluation))->band);
}

TEST(JndChart, ShowsEveryStep) {
  const Evaluation evaluation = evaluate(test::sampleCalibration());
  const auto points = Picture(renderSvg(*jndChart(evaluation))).circles("measured");
  ASSERT_EQ(points.size(), 17U);
  for (std::size_t i = 0; i < points.size(); ++i)
    EXPECT_NEAR(points[i].y, evaluation.deciding->steps[i].jndPerLevel, 0.01);
}

TEST(WhitePointChart, HasRoundCirclesAndTheWhiteAtItsPlace) {
  const Evaluation evaluation = evaluate(test::sampleCalibration());
  const Chart chart = *whitePointChart(evaluation);
  const Picture picture(renderSvg(chart));
  const auto points = picture.circles("measured");
  ASSERT_EQ(points.size(), 1U);
  EXPECT_NEAR(points[0].x, evaluation.white->u, 1e-5);
  EXPECT_NEAR(points[0].y, evaluation.white->v, 1e-5);
  const PlotArea area = plotArea(chart);
  EXPECT_NEAR((chart.x.high() - chart.x.low()) / (area.right - area.left),
              (chart.y.high() - chart.y.low()) / (area.bottom - area.top), 1e-9);
}

TEST(Trend, NeedsTwoPointsWithATime) {
  std::vector<HistoryPoint> history(2);
  history[0].time = "yesterday";
  history[0].measuredLmax = 250.0;
  history[1].time = "2026-11-21T08:25:49Z";
  history[1].measuredLmax = 249.0;
  EXPECT_FALSE(luminanceTrend(history));
  history[0].time = "2026-11-20 08:25:49";
  const auto chart = luminanceTrend(history);
  ASSERT_TRUE(chart);
  const auto points = Picture(renderSvg(*chart)).circles("measured");
  ASSERT_EQ(points.size(), 2U);
  EXPECT_NEAR(points[1].x - points[0].x, 86400.0, 60.0);
  EXPECT_NEAR(points[0].y, 250.0, 0.01);
  EXPECT_FALSE(sensorTrend(history));
}

TEST(History, IsSortedAndWithoutRepetitions) {
  RunRecord record = test::sampleCalibration();
  std::vector<HistoryPoint> more = record.history;
  HistoryPoint odd;
  odd.time = "once";
  more.push_back(odd);
  const auto all = allHistory(record, more);
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all.front().time, "once");
  EXPECT_EQ(all.back().time, "2026-05-20 06:58:03");
}

TEST(Charts, AreAbsentWhenNothingWasMeasured) {
  const RunRecord record = test::sampleCanceled();
  const Evaluation evaluation = evaluate(record);
  EXPECT_TRUE(luminanceChart(record, evaluation)) << "native points are there";
  EXPECT_FALSE(deviationChart(evaluation, judge(record, evaluation)));
  EXPECT_FALSE(jndChart(evaluation));
  EXPECT_FALSE(whitePointChart(evaluation));
  RunRecord empty;
  EXPECT_FALSE(luminanceChart(empty, evaluate(empty)));
}

TEST(ChartsJson, HasTheSameNumbersAsTheDrawing) {
  const RunRecord record = test::sampleCalibration();
  const Evaluation evaluation = evaluate(record);
  const auto json = nlohmann::json::parse(chartsJson({*luminanceChart(record, evaluation)}));
  ASSERT_EQ(json.size(), 1U);
  EXPECT_EQ(json[0]["id"], "luminance");
  EXPECT_EQ(json[0]["logarithmic"], true);
  EXPECT_EQ(json[0]["series"][2]["y"][17].get<double>(), *evaluation.lmax);
}

}  // namespace
}  // namespace kovctl
