// SPDX-License-Identifier: MIT
#include <nlohmann/json.hpp>

#include "report/chart.h"

namespace kovctl {
namespace {

using Json = nlohmann::ordered_json;

Json toJson(const Series& series) {
  Json xs = Json::array();
  Json ys = Json::array();
  for (const ChartPoint& point : series.points) {
    xs.push_back(point.x);
    ys.push_back(point.y);
  }
  const bool line = series.mark == Mark::kLine || series.mark == Mark::kDashes;
  return {{"name", series.name},
          {"label", series.label},
          {"line", line || series.joined},
          {"dashes", series.mark == Mark::kDashes},
          {"marks", !line},
          {"x", xs},
          {"y", ys}};
}

Json toJson(const Chart& chart) {
  Json json{{"id", chart.id},
            {"xLabel", chart.xLabel},
            {"yLabel", chart.yLabel},
            {"time", chart.x.scale() == Scale::kTime},
            {"levels", chart.levels},
            {"logarithmic", chart.y.scale() == Scale::kLogarithmic},
            {"x", {chart.x.low(), chart.x.high()}},
            {"y", {chart.y.low(), chart.y.high()}},
            {"aspect", chart.height / chart.width},
            {"series", Json::array()}};
  if (chart.band) json["band"] = {chart.band->low, chart.band->high};
  for (const Series& series : chart.series) json["series"].push_back(toJson(series));
  return json;
}

}  // namespace

std::string chartsJson(const std::vector<Chart>& charts) {
  Json all = Json::array();
  for (const Chart& chart : charts)
    if (chart.interactive) all.push_back(toJson(chart));
  return all.dump();
}

}  // namespace kovctl
