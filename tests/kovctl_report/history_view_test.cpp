// SPDX-License-Identifier: MIT
#include "report/history_view.h"

#include <gtest/gtest.h>

#include <string>

#include "report/axis.h"
#include "sample_record.h"

namespace kovctl {
namespace {

HistoryPoint entry(const char* source, const char* time) {
  HistoryPoint point;
  point.source = source;
  point.time = time;
  point.lutNumber = 1;
  point.targetLmax = 250.0;
  point.photoSensor = 753;
  point.performer = "M. Example";
  return point;
}

std::size_t listed(const HistoryPoint& monitors, const HistoryPoint& records) {
  RunRecord record = test::sampleCalibration();
  record.history = {monitors};
  return allHistory(record, {records}).size();
}

TEST(History, ListsARunOnceThatTheMonitorAndARecordTellOf) {
  const HistoryPoint run = entry("record", "2026-11-21T08:25:00Z");
  EXPECT_EQ(listed(entry("monitor", "2026-11-21T08:31:00Z"), run), 1U);
  EXPECT_EQ(listed(entry("monitor", "2026-11-21T08:24:59Z"), run), 2U) << "before it began";
  EXPECT_EQ(listed(entry("monitor", "2026-11-21T10:25:01Z"), run), 2U) << "long after it";
}

TEST(History, KeepsWhatDiffers) {
  const HistoryPoint run = entry("record", "2026-11-21T08:25:00Z");
  HistoryPoint other = entry("monitor", "2026-11-21T08:31:00Z");
  other.photoSensor = 752;
  EXPECT_EQ(listed(other, run), 2U);
  other = entry("monitor", "2026-11-21T08:31:00Z");
  other.lutNumber = 2;
  EXPECT_EQ(listed(other, run), 2U);
  EXPECT_EQ(listed(entry("record", "2026-11-21T08:31:00Z"), run), 2U) << "two records, two runs";
}

TEST(Axis, RunsOfOneDayAreToldApart) {
  std::string labels;
  const Axis axis = Axis::time(1795255080.0, 1795255230.0);  // 2026-11-21 09:58:00 and 10:00:30
  for (const Tick& tick : axis.ticks()) labels += tick.label + ", ";
  EXPECT_EQ(labels, "11-21 09:58, 11-21 09:59, 11-21 10:00, 11-21 10:01, ");
  EXPECT_GT(axis.position(1795255080.0), 0.05) << "the first label has room";
  EXPECT_LE(Axis::time(1795219200.0, 1795219200.0 + 86399.0).ticks().size(), 4U);
}

TEST(Axis, DifferencesHaveASign) {
  EXPECT_EQ(percentText(0.0123), "+1.23 %");
  EXPECT_EQ(percentText(-0.0123), "−1.23 %");
  EXPECT_EQ(percentText(std::nullopt), "");
}

}  // namespace
}  // namespace kovctl
