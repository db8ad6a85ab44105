// SPDX-License-Identifier: MIT
// Lists of any length: each entry leaves local references in the operation's frame, and -Xcheck:jni
// counts them against what the frame announced.
#include <gtest/gtest.h>

#include "tests/real/support.h"

namespace {

using lumora::kov::KovMonitorManager;
using realtest::Workstation;

TEST(LongLists, TwoThousandMonitors) {
  const Workstation workstation("extra.monitors = 1996");
  auto& manager = KovMonitorManager::get();
  manager.find();
  const std::vector<lumora::Monitor> monitors = manager.getMonitors();
  ASSERT_EQ(monitors.size(), 2000U);
  EXPECT_EQ(monitors.back().getModelName(), "OR-X100");
}

TEST(LongLists, TwoThousandHistoryEntries) {
  const Workstation workstation("extra.history = 2000");
  const lumora::Monitor monitor = Workstation::findColourMonitor();
  const auto history = monitor.getExtractCalibrationData();
  EXPECT_GE(history.size(), 2000U);
  // The other operation that walks all entries.
  EXPECT_GT(monitor.getCalibrationTargetData(0).size(), 0U);
}

}  // namespace
