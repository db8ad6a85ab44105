// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <thread>

#include "tests/real/support.h"

namespace {

using lumora::Monitor;
using lumora::kov::KovMonitorManager;
using realtest::Workstation;

TEST(Monitors, AreListedInTheLibrarysOrder) {
  const Workstation workstation;
  KovMonitorManager::get().find();
  const std::vector<Monitor> monitors = KovMonitorManager::get().getMonitors();
  ASSERT_EQ(monitors.size(), 4U);
  EXPECT_EQ(monitors[0].getModelName(), "OR-C321");
  EXPECT_EQ(monitors[0].getSerialNumber(), "30210045");
  EXPECT_EQ(monitors[1].getModelName(), "OR-M215");
  EXPECT_EQ(monitors[2].getModelName(), "OR-C240");
  EXPECT_EQ(monitors[3].getModelName(), "OR-C190");
}

TEST(Monitors, NoSearchNoMonitors) {
  const Workstation workstation;
  EXPECT_TRUE(KovMonitorManager::get().getMonitors().empty());
}

TEST(Monitors, AnswerEveryQuestion) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  EXPECT_EQ(monitor.getMonitorColorType(), OmCtrlPanelColor);
  EXPECT_EQ(monitor.getUsageTime().workingHours, 1234);
  EXPECT_EQ(monitor.getUsageTime().reserved, 0);
  EXPECT_EQ(monitor.getEdidModelName(), "OR-C321");
  EXPECT_EQ(monitor.getEdidSerialNumber(), "30210045");
  EXPECT_GT(monitor.getEdidProductYear(), 2000);
  EXPECT_FALSE(monitor.getConnectionType().empty());
  EXPECT_NE(monitor.getPackageName(), "noPackage");
  EXPECT_EQ(monitor.getCalModeValue(), 0U);
  EXPECT_TRUE(monitor.isKeyLockSupported());
}

TEST(Monitors, TheMonochromeOneSaysSo) {
  const Workstation workstation;
  KovMonitorManager::get().find();
  EXPECT_EQ(KovMonitorManager::get().getMonitorByName("OR-M215", "21500012").getMonitorColorType(),
            OmCtrlPanelMonochrome);
}

TEST(Monitors, AShortEdidSerialIsPadded) {
  const Workstation workstation;
  KovMonitorManager::get().find();
  EXPECT_EQ(KovMonitorManager::get().getMonitorByName("OR-C240", "24000777").getEdidSerialNumber(),
            "00001234");
}

TEST(Monitors, TheKeysLockAndUnlock) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  monitor.setKeyLockState(OmCtrlKeyLockLocked);
  EXPECT_EQ(monitor.getKeyLockState(), 10);
  monitor.setKeyLockState(static_cast<OmCtrlKeyLockState>(1));
  EXPECT_EQ(monitor.getKeyLockState(), OmCtrlKeyLockUnlocked);
}

TEST(Monitors, AnotherTableIsActivated) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  monitor.setCalModeValue(2);
  EXPECT_EQ(monitor.getCalModeValue(), 2U);
  EXPECT_THROW(monitor.setCalModeValue(99), lumora::kov::java::JavaException);
  EXPECT_EQ(monitor.getCalModeValue(), 2U);
}

TEST(Monitors, TheFactorysHistoryIsRead) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  const auto history = monitor.getExtractCalibrationData();
  ASSERT_EQ(history.size(), 5U);
  EXPECT_EQ(history[0].lutNumber, 1);
  EXPECT_EQ(history[4].lutNumber, 5);
  EXPECT_EQ(history[0].target.calibrationKind, "STANDARD");
  EXPECT_TRUE(history[0].target.validFlag);
  EXPECT_GT(history[0].horizontalResolution, 0);
  EXPECT_FALSE(monitor.getGammaModelTag(0).empty());

  const pocketjson::Value target = monitor.getCalibrationTargetData(4);
  EXPECT_EQ(target["displayFunction"].asInt(-1), history[4].target.displayFunction);
  EXPECT_DOUBLE_EQ(target["lmax"].asDouble(), history[4].target.maxLuminance);
  EXPECT_EQ(monitor.getCalibrationTargetData(5).type(), pocketjson::Value::Null);
}

TEST(Monitors, WithoutHistoryThereIsNone) {
  const Workstation workstation;
  KovMonitorManager::get().find();
  const Monitor monitor = KovMonitorManager::get().getMonitorByName("OR-C190", "19000003");
  EXPECT_TRUE(monitor.getExtractCalibrationData().empty());
  EXPECT_EQ(monitor.getCalibrationTargetData(0).type(), pocketjson::Value::Null);
  EXPECT_THROW(monitor.getGammaModelTag(0), lumora::kov::java::JavaException);
}

TEST(Monitors, UnknownNamesAreToldSo) {
  const Workstation workstation;
  KovMonitorManager::get().find();
  try {
    KovMonitorManager::get().getMonitorByName("OR-C321", "no such");
    FAIL();
  } catch (const std::logic_error& e) {
    EXPECT_STREQ(e.what(), "Can not find monitor");
  }
}

TEST(Monitors, ASlowSearchIsPolledOncePerSecond) {
  const Workstation workstation("search.ms = 1500");
  lumora::kov::java::Env();  // the machine's start takes time of its own
  const auto start = std::chrono::steady_clock::now();
  KovMonitorManager::get().find();
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_GE(took, std::chrono::milliseconds(2000));
  EXPECT_LT(took, std::chrono::seconds(20)) << "no more polls than it takes, on a loaded machine";
}

TEST(Monitors, AHandleIsUsedAndDroppedOnOtherThreads) {
  const Workstation workstation;
  std::optional<Monitor> kept;
  std::thread([&kept] { kept = Workstation::findColourMonitor(); }).join();
  EXPECT_EQ(kept->getModelName(), "OR-C321");
  std::thread([&kept] { kept.reset(); }).join();
}

TEST(Monitors, AJavaFailureReachesTheHost) {
  const Workstation workstation;
  workstation.order(
      "fault.1.call = Monitor.getModel\nfault.1.action = throw\nfault.1.nth = 1\n"
      "fault.1.class = java.lang.IllegalStateException\nfault.1.message = Zeitüberschreitung\n");
  const Monitor monitor = Workstation::findColourMonitor();
  try {
    monitor.getModelName();
    FAIL();
  } catch (const lumora::kov::java::JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.IllegalStateException");
    EXPECT_STREQ(e.what(), "Zeitüberschreitung");
  }
  EXPECT_EQ(monitor.getModelName(), "OR-C321");
}

// A handle in static memory is destroyed when the process ends, after the thread's own objects.
std::optional<Monitor> atProcessEnd;
TEST(Monitors, AStaticHandleSurvivesTheProcess) {
  const Workstation workstation;
  atProcessEnd = Workstation::findColourMonitor();
}

}  // namespace
