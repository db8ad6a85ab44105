// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "tests/real/support.h"

namespace {

using realtest::Calibration;
using realtest::Workstation;

TEST(Cancel, FromAnotherThreadEndsTheRunAfterThePause) {
  const Workstation workstation;
  const lumora::Monitor monitor = Workstation::findColourMonitor();
  const double before = monitor.getCalibrationTargetData(0)["lmax"].asDouble();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);

  std::chrono::steady_clock::time_point canceled;
  run.instrument.onPatch = [&](int patch) {
    if (patch != 10) return;
    std::thread([&] {
      EXPECT_EQ(run.calibrator.cancel(), OM_OK);
      canceled = std::chrono::steady_clock::now();
    }).join();
  };
  EXPECT_EQ(run.calibrator.execute(), OM_ERR_CANCELED);
  EXPECT_GE(std::chrono::steady_clock::now() - canceled, std::chrono::milliseconds(10000));
  EXPECT_TRUE(run.calibrator.isCanceled());
  EXPECT_EQ(run.instrument.patches, 10);
  EXPECT_TRUE(run.instrument.events.empty());

  EXPECT_EQ(run.calibrator.restore(), OM_OK);
  EXPECT_EQ(monitor.getCalModeValue(), 0U);
  EXPECT_EQ(monitor.getCalibrationTargetData(0)["lmax"].asDouble(), before);

  run.instrument.onPatch = nullptr;
  EXPECT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
  EXPECT_FALSE(run.calibrator.isCanceled());
}

TEST(Cancel, AfterTheFinishChangesNothing) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  ASSERT_EQ(run.calibrator.execute(), OM_OK);
  EXPECT_EQ(run.calibrator.cancel(), OM_OK);
  EXPECT_FALSE(run.calibrator.isCanceled());
}

TEST(Cancel, BeforeAnyRunAbortsAndIsForgottenByTheNext) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  EXPECT_EQ(run.calibrator.cancel(), OM_OK);
  EXPECT_TRUE(run.calibrator.isCanceled());
  EXPECT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
  EXPECT_FALSE(run.calibrator.isCanceled());
}

}  // namespace
