// SPDX-License-Identifier: MIT
// Runs over the real Java runtime, canceled at moments that are drawn by lot. The waits are the
// step clock's, so that a cancel does not cost its ten seconds.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <iostream>
#include <ostream>
#include <thread>

#include "simulator/meter/sim_meter.h"
#include "tests/real/support.h"
#include "tests/reliability/lot.h"
#include "tests/step_clock/step_clock.h"

namespace {

using kovtest::Lot;
using kovtest::StepClock;
using lumora::Monitor;
using realtest::Calibration;
using realtest::Workstation;

constexpr int kTable = 1;  // the calibrated one
constexpr unsigned kAnotherTable = 0;
constexpr unsigned kPause = 10000;  // milliseconds
constexpr int kRuns = 200;

// What a calibration would change: the table's target, the history, and the light of the panel
// (cd/m2) at four levels.
struct State {
  double target = 0.0;
  std::size_t entries = 0;
  std::array<double, 4> light{};
  bool operator==(const State&) const = default;
};
void PrintTo(const State& state, std::ostream* out) {
  *out << state.target << " cd/m2, " << state.entries << " entries, light";
  for (const double level : state.light) *out << ' ' << level;
}

// The state with the calibrated table active.
State stateOf(const Monitor& monitor, const Calibration& run) {
  monitor.setCalModeValue(kTable);
  State state{monitor.getCalibrationTargetData(kTable)["lmax"].asDouble(),
              monitor.getExtractCalibrationData().size(),
              {}};
  double component = 0.1, x = 0.0, y = 0.0;
  for (double& level : state.light) {
    EXPECT_EQ(MDSimShowPatch(run.instrument.device(), component, component, component), MDSIM_OK);
    EXPECT_EQ(MDSimMeasure(run.instrument.device(), &level, &x, &y), MDSIM_OK);
    component += 0.3;
  }
  return state;
}

pocketjson::Value targetOf(double luminance) {
  pocketjson::Value target = realtest::dicomTarget();
  target["LmaxValue"] = luminance;
  return target;
}

// Executes and cancels on another thread, so long after patch `patch` has begun. At patch `last`,
// the last but one, the run waits for the cancel, so that it cannot be over before.
OmError executeAndCancel(Calibration& run, int patch, int last, std::chrono::microseconds later) {
  std::atomic<bool> isCanceled{false};
  std::thread canceler([&] {
    while (run.instrument.patches < patch) std::this_thread::yield();
    std::this_thread::sleep_for(later);
    EXPECT_EQ(run.calibrator.cancel(), OM_OK);
    isCanceled = true;
  });
  run.instrument.onPatch = [&](int number) {
    while (number >= last && !isCanceled) std::this_thread::yield();
  };
  const OmError code = run.calibrator.execute();
  canceler.join();
  return code;
}

// One run that is canceled somewhere and leaves everything as it was.
void cancelOnce(const Monitor& monitor, Lot& lot, int patches, const State& before) {
  Calibration run(realtest::kColour, kTable);
  ASSERT_EQ(setTarget(run, targetOf(200.0)), OM_OK);
  StepClock::get().forget();
  const int patch = lot.draw(1, patches - 1);
  const OmError code =
      executeAndCancel(run, patch, patches - 1, std::chrono::microseconds(lot.draw(0, 5000)));
  EXPECT_EQ(code, OM_ERR_CANCELED) << "at patch " << patch;
  EXPECT_EQ(StepClock::get().waits(), std::vector<unsigned>{kPause});
  EXPECT_TRUE(run.instrument.events.empty());
  EXPECT_LT(run.instrument.patches, patches);

  monitor.setCalModeValue(kAnotherTable);
  EXPECT_EQ(run.calibrator.restore(), OM_OK);
  EXPECT_EQ(monitor.getCalModeValue(), static_cast<unsigned>(kTable));
  EXPECT_EQ(stateOf(monitor, run), before);
}

TEST(RealCancel, AtAnyMomentEndsInItsCodeAndLeavesTheMonitorAsItWas) {
  const Workstation workstation;
  // The search takes its time; only the pause behind a cancel is skipped.
  StepClock::get().onWait([](unsigned milliseconds) {
    if (milliseconds < kPause) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  });
  const Monitor monitor = Workstation::findColourMonitor();
  Calibration first(realtest::kColour, kTable);
  ASSERT_EQ(first.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(first, targetOf(250.0)), OM_OK);
  ASSERT_EQ(first.calibrator.execute(), OM_OK) << first.calibrator.getErrorMsg();
  const State before = stateOf(monitor, first);
  ASSERT_EQ(before.target, 250.0);

  Lot lot;
  for (int i = 0; i < kRuns; ++i) {
    SCOPED_TRACE(testing::Message() << "run " << i << ", L5KOV_TEST_SEED=" << lot.seed);
    cancelOnce(monitor, lot, first.instrument.patches, before);
  }
  std::cout << kRuns << " runs of " << first.instrument.patches
            << " patches canceled, L5KOV_TEST_SEED=" << lot.seed << '\n';

  // A run that is let be does change it: the comparison sees what it is to see.
  Calibration last(realtest::kColour, kTable);
  ASSERT_EQ(setTarget(last, targetOf(200.0)), OM_OK);
  EXPECT_EQ(last.calibrator.execute(), OM_OK) << last.calibrator.getErrorMsg();
  const State after = stateOf(monitor, last);
  EXPECT_EQ(after.target, 200.0);
  EXPECT_EQ(after.entries, before.entries + 1);
  EXPECT_NE(after.light, before.light);
}

}  // namespace
