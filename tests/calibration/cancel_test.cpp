// SPDX-License-Identifier: MIT
// cancel() in every state, with a clock that does not wait.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "tests/calibration/calibrator_fixture.h"
#include "tests/step_clock/step_clock.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;

const std::vector<unsigned> kNoPause;
const std::vector<unsigned> kOnePause = {10000};

class Cancel : public CalibratorTest {
 protected:
  static std::vector<unsigned> pauses() { return StepClock::get().waits(); }
  // From a thread of its own, as a user interface would.
  static OmError cancelElsewhere(KovCalibrator& made) {
    OmError result = OM_OK;
    std::thread([&] { result = made.cancel(); }).join();
    return result;
  }
};

TEST_F(Cancel, AsksInThisOrder) {
  KovCalibrator made = calibrator();
  jvm.log.clear();
  EXPECT_EQ(made.cancel(), OM_OK);
  EXPECT_EQ(jvm.log, looksUp("monitor") +
                         inFrame(guarded("CallVoidMethodV monitor.abortCalibration()")) +
                         released("monitor"));
}

TEST_F(Cancel, BeforeAnyExecuteAbortsAndSetsCanceledAndTheNextExecuteClearsIt) {
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.cancel(), OM_OK);
  EXPECT_EQ(world.abortCount(), 1);
  EXPECT_TRUE(made.isCanceled());
  world.onCalibrate([&](CalibrationRun& run) {
    EXPECT_FALSE(made.isCanceled());
    simpleCalibration(run);
  });
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_FALSE(made.isCanceled());
  EXPECT_EQ(pauses(), kNoPause);
}

TEST_F(Cancel, AfterSetCalibrationTargetAborts) {
  KovCalibrator made = calibrator();
  ASSERT_EQ(setTarget(made, {}), OM_OK);
  EXPECT_EQ(made.cancel(), OM_OK);
  EXPECT_EQ(world.abortCount(), 1);
  EXPECT_TRUE(made.isCanceled());
}

TEST_F(Cancel, WhileRunningEndsTheRunAsCanceledAfterThePause) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun& run) {
    EXPECT_TRUE(run.measure().has_value());
    EXPECT_EQ(cancelElsewhere(made), OM_OK);
    EXPECT_TRUE(made.isCanceled());
    EXPECT_FALSE(run.measure().has_value());
  });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  EXPECT_EQ(pauses(), kOnePause);
  EXPECT_TRUE(made.isCanceled()) << "until the next execute()";
  EXPECT_EQ(world.abortCount(), 1);
}

TEST_F(Cancel, FromTheDelegateOnTheSameThread) {
  KovCalibrator made = calibrator();
  delegate.onProgress = [&](double) { EXPECT_EQ(made.cancel(), OM_OK); };
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  EXPECT_EQ(delegate.events, std::vector<std::string>{"progress"});
}

TEST_F(Cancel, TwiceWhileRunningAbortsTwice) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun&) {
    made.cancel();
    made.cancel();
  });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  EXPECT_EQ(world.abortCount(), 2);
}

TEST_F(Cancel, AfterTheFinishCallbackReturnsOkAndChangesNothing) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun& run) {
    run.finishWith(1, 2, 3);
    EXPECT_EQ(cancelElsewhere(made), OM_OK);
  });
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_FALSE(made.isCanceled());
  EXPECT_EQ(made.cancel(), OM_OK) << "nor when the run is over";
  EXPECT_FALSE(made.isCanceled());
  EXPECT_EQ(world.abortCount(), 0);
  EXPECT_EQ(pauses(), kNoPause);
}

TEST_F(Cancel, AfterTheFinishCallbackStillLooksTheMonitorUp) {
  KovCalibrator made = calibrator();
  made.execute();
  objects.monitor->setField("serialNumber", "gone");
  EXPECT_EQ(made.cancel(), OM_ERR_COMMUNICATION);
}

// The flag goes first, so that a cancel from inside the notification no longer aborts.
TEST_F(Cancel, InsideTheFinishNotificationDoesNothing) {
  KovCalibrator made = calibrator();
  delegate.onEvent = [&](const std::string&) { EXPECT_EQ(made.cancel(), OM_OK); };
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(world.abortCount(), 0);
}

TEST_F(Cancel, WhileTheResultsAreTakenDoesNothing) {
  KovCalibrator made = calibrator();
  const auto results = fakejvm::makeList({world.result("r", 1, 2, 3)}, "results");
  jvm->script(results, "get", [&](fakejvm::Call& call) {
    EXPECT_EQ(cancelElsewhere(made), OM_OK);
    return call.self->elements()[0];
  });
  world.onCalibrate([&](CalibrationRun& run) { run.finish(results); });
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(world.abortCount(), 0);
}

TEST_F(Cancel, AfterARunThatNeverFinishedAbortsAgain) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun&) {});
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(made.cancel(), OM_OK);
  EXPECT_EQ(world.abortCount(), 1);
  EXPECT_TRUE(made.isCanceled());
}

TEST_F(Cancel, CanceledIsSetOnlyAfterAbortCalibrationHasReturned) {
  KovCalibrator made = calibrator();
  bool duringAbort = true;
  world.onAbort([&] { duringAbort = made.isCanceled(); });
  world.onCalibrate([&](CalibrationRun&) { cancelElsewhere(made); });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  EXPECT_FALSE(duringAbort);
}

// A run that ends while the abort is under way may still be a success.
TEST_F(Cancel, RunThatEndsBeforeAbortCalibrationReturnsIsOk) {
  KovCalibrator made = calibrator();
  std::atomic<bool> aborting = false, over = false;
  world.onAbort([&] {
    aborting = true;
    while (!over) std::this_thread::yield();
  });
  std::thread canceller;
  world.onCalibrate([&](CalibrationRun&) {
    canceller = std::thread([&] { EXPECT_EQ(made.cancel(), OM_OK); });
    while (!aborting) std::this_thread::yield();
  });
  EXPECT_EQ(made.execute(), OM_OK);
  over = true;
  canceller.join();
  EXPECT_TRUE(made.isCanceled());
  EXPECT_EQ(pauses(), kNoPause);
}

TEST_F(Cancel, FailedAbortLeavesCanceledUnset) {
  jvm->script(objects.monitor, "abortCalibration", fakejvm::throws("java/io/IOException", "busy"));
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.cancel(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "busy");
  EXPECT_FALSE(made.isCanceled());
}

TEST_F(Cancel, RunThatThrowsAfterACancelGivesItsErrorWithoutAPause) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun&) {
    made.cancel();
    throw fakejvm::JavaThrow("java/io/IOException", "Error sending data");
  });
  EXPECT_EQ(made.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(pauses(), kNoPause);
  EXPECT_TRUE(made.isCanceled());
}

TEST_F(Cancel, FinishAfterACancelStillEndsTheRunAsCanceled) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun& run) {
    made.cancel();
    run.finishWith(1, 2, 3);
  });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  EXPECT_EQ(made.cancel(), OM_OK);
  EXPECT_EQ(world.abortCount(), 1) << "the finish callback has cleared the way";
}

TEST_F(Cancel, NothingIsHeldDuringThePause) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun&) { made.cancel(); });
  Lines held;
  int frames = -1;
  StepClock::get().onWait([&](unsigned) {
    held = jvm->liveGlobalRefNames();
    frames = jvm->localFrameDepth();
  });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  std::sort(held.begin(), held.end());
  EXPECT_EQ(held, (Lines{"ArrayList#1", "CalibrationTargetValues#1"})) << "the calibrator's own";
  EXPECT_EQ(frames, 0);
}

TEST_F(Cancel, SecondExecuteAfterACanceledOneRunsNormally) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun&) { made.cancel(); });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  world.onCalibrate(simpleCalibration);
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_FALSE(made.isCanceled());
  EXPECT_EQ(pauses(), kOnePause);
}

TEST_F(Cancel, ReleasesItsReferencesThroughItsOwnThread) {
  KovCalibrator made = calibrator();
  world.onCalibrate([&](CalibrationRun&) { cancelElsewhere(made); });
  EXPECT_EQ(made.execute(), OM_ERR_CANCELED);
  EXPECT_EQ(jvm->attachedThreads(), 1) << "the canceling thread has detached";
}

// Runs against a thread that cancels: in turn while the run waits for it, after the run has
// finished, and at the same time as the run goes on, when either may win.
TEST_F(Cancel, ConcurrentWithExecuteAtAnyMoment) {
  KovCalibrator made = calibrator();
  std::atomic<int> asked = 0, answered = 0;
  std::atomic<bool> stop = false;
  std::thread canceller([&] {
    while (!stop) {
      if (answered == asked) {
        std::this_thread::yield();
        continue;
      }
      EXPECT_EQ(made.cancel(), OM_OK);
      ++answered;
    }
  });
  const auto untilAnswered = [&] {
    while (answered != asked) std::this_thread::yield();
  };
  enum Kind { kWaits, kFinishesFirst, kRaces };
  constexpr int kRuns = 150;
  std::size_t canceled = 0;
  for (int i = 0; i < kRuns; ++i) {
    const auto kind = static_cast<Kind>(i % 3);
    world.onCalibrate([&](CalibrationRun& run) {
      run.draw(0, 0, 0);
      if (kind != kFinishesFirst) ++asked;
      if (kind == kWaits) untilAnswered();
      for (int step = 0; step < i && run.measure(); ++step) run.progress(step);
      if (kind == kWaits) {
        EXPECT_FALSE(run.measure().has_value());
        return;
      }
      run.finishWith(1, 2, 3);
      if (kind == kFinishesFirst) ++asked;
    });
    const OmError result = made.execute();
    EXPECT_TRUE(result == OM_ERR_CANCELED || (result == OM_OK && kind != kWaits)) << result;
    EXPECT_TRUE(result == OM_OK || kind != kFinishesFirst) << result;
    if (result == OM_ERR_CANCELED) {
      EXPECT_TRUE(made.isCanceled());
      ++canceled;
    }
    untilAnswered();
  }
  stop = true;
  canceller.join();
  EXPECT_EQ(pauses().size(), canceled) << "one pause for each, and for no other";
}

}  // namespace
