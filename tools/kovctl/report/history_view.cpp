// SPDX-License-Identifier: MIT
#include "report/history_view.h"

#include <algorithm>
#include <string>

#include "record/text_form.h"

namespace kovctl {
namespace {

// The longest from the start of a run to what the monitor writes down at its end.
constexpr double kLongestRun = 2.0 * 3600.0;

// Whether the monitor's own entry tells of the run that has left a record, which tells more.
bool isOfRun(const HistoryPoint& entry, const HistoryPoint& run) {
  if (entry.source != "monitor" || run.source != "record") return false;
  const auto written = momentOf(entry.time);
  const auto started = momentOf(run.time);
  return written && started && *written >= *started && *written - *started <= kLongestRun &&
         entry.lutNumber == run.lutNumber && entry.targetLmax == run.targetLmax &&
         entry.photoSensor == run.photoSensor && entry.performer == run.performer;
}

}  // namespace

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
  for (const HistoryPoint& point : points) {
    const bool told = std::any_of(points.begin(), points.end(),
                                  [&](const HistoryPoint& run) { return isOfRun(point, run); });
    const bool listed = std::find(unique.begin(), unique.end(), point) != unique.end();
    if (!told && !listed) unique.push_back(point);
  }
  return unique;
}

HistoryPoint asHistory(const RunRecord& record, const Evaluation& evaluation,
                       const Verdict& verdict) {
  HistoryPoint point;
  point.time = record.endTime;
  point.source = "record";
  if (record.monitor.lutIndex) point.lutNumber = *record.monitor.lutIndex + 1;
  point.workingHours = record.monitor.workingHours;
  if (record.target.lmax > 0.0) point.targetLmax = record.target.lmax;
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
