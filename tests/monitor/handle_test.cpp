// SPDX-License-Identifier: MIT
// The handle with a host's own control: what it owns, and that it forwards everything unchanged.
#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "l5kov.h"
#include "tests/monitor/host_control.h"

namespace {

using kovtest::HostControl;
using kovtest::HostControlRecord;
using lumora::Monitor;

using Calls = std::vector<std::string>;

static_assert(!std::is_default_constructible_v<Monitor>, "there is no empty handle to begin with");
static_assert(!std::is_convertible_v<lumora::MonitorControl*, Monitor>,
              "ownership is not taken unasked");
static_assert(!std::is_constructible_v<Monitor, std::shared_ptr<HostControl>>,
              "a control is shared by handles alone");
static_assert(std::is_nothrow_move_constructible_v<Monitor> &&
                  std::is_nothrow_move_assignable_v<Monitor>,
              "vectors of handles move them");
static_assert(sizeof(Monitor) == sizeof(std::shared_ptr<int>), "one member: the shared control");
static_assert(std::has_virtual_destructor_v<lumora::MonitorControl>);
static_assert(std::is_abstract_v<lumora::MonitorControl>);
static_assert(sizeof(lumora::MonitorControl) == sizeof(void*), "no data members");

TEST(MonitorHandle, DestroysItsControlExactlyOnce) {
  HostControlRecord record;
  {
    const Monitor monitor(new HostControl(record));
    EXPECT_EQ(record.destroyed, 0);
  }
  EXPECT_EQ(record.destroyed, 1);
}

TEST(MonitorHandle, CopySurvivesTheFirstAndTheControlIsDestroyedOnceWithTheLast) {
  HostControlRecord record;
  {
    auto first = std::make_unique<Monitor>(new HostControl(record));
    const Monitor copy(*first);
    first.reset();
    EXPECT_EQ(record.destroyed, 0);
    EXPECT_EQ(copy.getModelName(), "getModelName");
  }
  EXPECT_EQ(record.destroyed, 1);
}

TEST(MonitorHandle, CopiesAddressTheSameControl) {
  HostControlRecord record;
  const Monitor first(new HostControl(record));
  const Monitor copy = first;
  first.setCalModeValue(1);
  copy.setCalModeValue(2);
  EXPECT_EQ(record.calls, (Calls{"setCalModeValue 1", "setCalModeValue 2"}));
}

TEST(MonitorHandle, CopyAssignmentReleasesTheControlItHeld) {
  HostControlRecord left, right;
  Monitor target(new HostControl(left));
  const Monitor source(new HostControl(right));
  target = source;
  EXPECT_EQ(left.destroyed, 1);
  EXPECT_EQ(right.destroyed, 0);
  target.abortCalibration();
  EXPECT_EQ(right.calls, Calls{"abortCalibration"});
}

TEST(MonitorHandle, MoveTakesTheControlOverAndLeavesTheSourceEmpty) {
  HostControlRecord record;
  {
    Monitor source(new HostControl(record));
    const Monitor taken(std::move(source));
    EXPECT_EQ(taken.getSerialNumber(), "getSerialNumber");
    // An empty handle owns nothing: assigning to it destroys nothing.
    HostControlRecord other;
    source = Monitor(new HostControl(other));
    EXPECT_EQ(record.destroyed, 0);
    EXPECT_EQ(source.getModelName(), "getModelName");
  }
  EXPECT_EQ(record.destroyed, 1);
}

TEST(MonitorHandle, MoveAssignmentReleasesTheControlItHeld) {
  HostControlRecord left, right;
  Monitor target(new HostControl(left));
  target = Monitor(new HostControl(right));
  EXPECT_EQ(left.destroyed, 1);
  EXPECT_EQ(right.destroyed, 0);
}

TEST(MonitorHandle, SelfAssignmentByCopyOrMoveLeavesTheHandleUnchanged) {
  HostControlRecord record;
  {
    Monitor monitor(new HostControl(record));
    Monitor& same = monitor;
    monitor = same;
    EXPECT_EQ(record.destroyed, 0);
    EXPECT_EQ(monitor.getModelName(), "getModelName");
    monitor = std::move(same);
    EXPECT_EQ(record.destroyed, 0);
    EXPECT_EQ(monitor.getConnectionType(), "getConnectionType");
  }
  EXPECT_EQ(record.destroyed, 1);
}

TEST(MonitorHandle, CopiesMayBeMadeAndDestroyedOnManyThreads) {
  HostControlRecord record;
  {
    const Monitor monitor(new HostControl(record));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([&monitor] {
        for (int k = 0; k < 10000; ++k) {
          Monitor copy(monitor);
          Monitor moved(std::move(copy));
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(record.destroyed, 0);
  }
  EXPECT_EQ(record.destroyed, 1);
}

TEST(MonitorHandle, ForwardsEveryOperationWithItsArgumentsAndResult) {
  HostControlRecord record;
  const Monitor monitor(new HostControl(record));
  EXPECT_EQ(monitor.getModelName(), "getModelName");
  EXPECT_EQ(monitor.getSerialNumber(), "getSerialNumber");
  EXPECT_EQ(monitor.getPackageName(), "getPackageName");
  EXPECT_EQ(monitor.getEdidModelName(), "getEdidModelName");
  EXPECT_EQ(monitor.getEdidSerialNumber(), "getEdidSerialNumber");
  EXPECT_EQ(monitor.getEdidProductYear(), 2019);
  EXPECT_EQ(monitor.getConnectionType(), "getConnectionType");
  EXPECT_EQ(monitor.getCalibrationTargetData(4294967295U).asString(),
            "getCalibrationTargetData 4294967295");
  EXPECT_EQ(monitor.getUsageTime().workingHours, 77);
  EXPECT_EQ(monitor.getCalModeValue(), 4000000000U);
  monitor.setCalModeValue(4294967295U);
  EXPECT_EQ(monitor.getExtractCalibrationData().size(), 3U);
  EXPECT_EQ(monitor.getMonitorColorType(), OmCtrlPanelColor);
  EXPECT_TRUE(monitor.isKeyLockSupported());
  EXPECT_EQ(monitor.getKeyLockState(), OmCtrlKeyLockLocked);
  monitor.setKeyLockState(OmCtrlKeyLockLocked);
  EXPECT_EQ(monitor.getGammaModelTag(7), "getGammaModelTag 7");
  monitor.abortCalibration();
  monitor.performCalibration(reinterpret_cast<jobject>(std::uintptr_t{4096}), true, -5, false,
                             "text", -1LL);
  EXPECT_EQ(
      record.calls,
      (Calls{"getModelName", "getSerialNumber", "getPackageName", "getEdidModelName",
             "getEdidSerialNumber", "getEdidProductYear", "getConnectionType",
             "getCalibrationTargetData 4294967295", "getUsageTime", "getCalModeValue",
             "setCalModeValue 4294967295", "getExtractCalibrationData", "getMonitorColorType",
             "isKeyLockSupported", "getKeyLockState", "setKeyLockState 10", "getGammaModelTag 7",
             "abortCalibration", "performCalibration 4096 1 -5 0 text -1"}));
}

TEST(MonitorHandle, MovesTheTextOfPerformCalibrationToTheControl) {
  HostControlRecord record;
  const Monitor monitor(new HostControl(record));
  std::string text(1000, 'x');
  const char* const data = text.data();
  monitor.performCalibration(nullptr, false, 0, false, std::move(text), 0);
  EXPECT_EQ(record.textData, data) << "the text was copied on its way";
}

TEST(MonitorHandle, ExceptionsOfTheControlPassUntouched) {
  HostControlRecord record;
  const Monitor monitor(new HostControl(record));
  struct OfTheHost {
    int number;
  };
  record.toThrow = std::make_exception_ptr(OfTheHost{42});
  int caught = 0;
  const auto seen = [&](auto operation) {
    try {
      operation();
    } catch (const OfTheHost& e) {
      caught += e.number;
    }
  };
  seen([&] { monitor.getModelName(); });
  seen([&] { monitor.getUsageTime(); });
  seen([&] { monitor.getExtractCalibrationData(); });
  seen([&] { monitor.setKeyLockState(OmCtrlKeyLockLocked); });
  seen([&] { monitor.getCalibrationTargetData(0); });
  seen([&] { monitor.performCalibration(nullptr, false, 0, false, "t", 0); });
  EXPECT_EQ(caught, 6 * 42);
}

}  // namespace
