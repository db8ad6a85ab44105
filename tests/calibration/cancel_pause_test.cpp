// SPDX-License-Identifier: MIT
// The pause after a canceled calibration, sat through.
#include <gtest/gtest.h>

#include <chrono>

#include "tests/calibration/calibrator_fixture.h"

namespace {

using namespace kovtest;

class CancelPause : public CalibratorTest {};

TEST_F(CancelPause, CanceledExecuteReturnsNoSoonerThanTenRealSecondsAfterTheRun) {
  using Clock = std::chrono::steady_clock;
  auto made = calibrator();
  Clock::time_point cameBack;
  world.onCalibrate([&](CalibrationRun&) {
    made.cancel();
    cameBack = Clock::now();
  });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  const auto paused = Clock::now() - cameBack;
  EXPECT_GE(paused, std::chrono::seconds(10));
  EXPECT_LT(paused, std::chrono::seconds(20));
}

TEST_F(CancelPause, RunThatWasNotCanceledReturnsAtOnce) {
  auto made = calibrator();
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

}  // namespace
