// SPDX-License-Identifier: MIT
#include "report/history_view.h"

#include <algorithm>
#include <string>

#include "record/text_form.h"

namespace kovctl {

std::optional<double> momentOf(std::string_view time) {
  if (const auto seconds = secondsOf(time)) return seconds;
  if (time.size() < 19 || time[10] != ' ') return std::nullopt;
  std::string utc(time);
  utc[10] = 'T';
  return secondsOf(utc + "Z");
}

std::vector<HistoryPoint> allHistory(const RunRecord& record,
                                     const std::vector<HistoryPoint>& more) {
  std::vector<HistoryPoint> points = record.history;
  points.insert(points.end(), more.begin(), more.end());
  std::stable_sort(points.begin(), points.end(), [](const HistoryPoint& a, const HistoryPoint& b) {
    return momentOf(a.time) < momentOf(b.time);  // nothing is before everything
  });
  std::vector<HistoryPoint> unique;
  for (const HistoryPoint& point : points)
    if (std::find(unique.begin(), unique.end(), point) == unique.end()) unique.push_back(point);
  return unique;
}

HistoryPoint asHistory(const RunRecord& record, const Evaluation& evaluation,
                       const Verdict& verdict) {
  HistoryPoint point;
  point.time = record.endTime;
  point.source = "record";
  if (record.monitor.lutIndex) point.lutNumber = *record.monitor.lutIndex + 1;
  point.workingHours = record.monitor.workingHours;
  point.targetLmax = record.target.lmax;
  point.targetLmin = record.target.lmin;
  point.measuredLmax = evaluation.lmax;
  point.measuredLmin = evaluation.lmin;
  point.photoSensor = record.result.photoSensor;
  if (evaluation.deciding) point.maxDeviation = evaluation.deciding->largestDeviation;
  if (verdict.outcome != Outcome::kNotApplicable) point.passed = verdict.outcome == Outcome::kPass;
  point.performer = record.operatorName;
  point.instrument = record.instrument.name;
  return point;
}

}  // namespace kovctl
