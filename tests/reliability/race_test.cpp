// SPDX-License-Identifier: MIT
// Threads against threads. Each test also runs under ThreadSanitizer; the waits are the step
// clock's, so a canceled run costs no ten seconds.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <iostream>
#include <thread>
#include <vector>

#include "tests/calibration/calibrator_fixture.h"
#include "tests/java/threads.h"
#include "tests/reliability/lot.h"
#include "tests/step_clock/step_clock.h"

namespace {

using namespace kovtest;
using lumora::Monitor;
using lumora::kov::KovCalibrator;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;

Monitor lookUp() { return KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001"); }

// When a run is canceled: so many patches into it, and so long after that patch. Behind the last
// patch the run ends by itself, while the cancel comes.
struct Moment {
  static constexpr int kPatches = 20;
  int patch;
  std::chrono::microseconds later;
  bool beforeTheEnd() const { return patch < kPatches; }
};

// A run that is canceled before its end goes on until it notices, as a monitor would.
void calibrateUntil(const Moment& moment, CalibrationRun& calibration) {
  for (int i = 0; i < Moment::kPatches || moment.beforeTheEnd(); ++i) {
    calibration.draw(i, i, i);
    if (!calibration.measure()) return;
    if (i > moment.patch) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  calibration.finishWith(250, 0.5, 812);
}

// One run on this thread and its cancel on another; the run's code and how long it paused.
struct Canceled {
  OmError code;
  std::size_t pauses;
};
Canceled cancelAt(const Moment& moment, KovWorld& world, KovCalibrator& calibrator,
                  RecordingDelegate& delegate) {
  std::atomic<int> patches{0};
  delegate.onShow = [&](auto&) { ++patches; };
  world.onCalibrate([&](CalibrationRun& calibration) { calibrateUntil(moment, calibration); });
  std::atomic<bool> over{false};
  std::thread canceler([&] {
    // Not before the first patch: a cancel before the run begins is lost, and the run endless.
    while (patches < std::max(moment.patch, 1) && !over) std::this_thread::yield();
    std::this_thread::sleep_for(moment.later);
    EXPECT_EQ(calibrator.cancel(), OM_OK);
  });
  const std::size_t before = StepClock::get().waits().size();
  const OmError code = calibrator.execute();
  over = true;
  canceler.join();
  delegate.onShow = nullptr;
  return {code, StepClock::get().waits().size() - before};
}

// The monitor shows another table than the calibrated one, 0, until the calibrator restores it.
void expectToRestore(KovCalibrator& calibrator) {
  lookUp().setCalModeValue(1);
  EXPECT_EQ(lookUp().getCalModeValue(), 1u);
  EXPECT_EQ(calibrator.restore(), OM_OK);
  EXPECT_EQ(lookUp().getCalModeValue(), 0u);
}

// 200 runs, each canceled at a moment of its own, drawn by lot; the seed is told with each failure.
TEST(Race, CancelAgainstExecuteEndsEachRunInItsDocumentedCode) {
  FakeJvm jvm;
  Registered registered(jvm);
  KovWorld world(jvm);
  world.addMonitor();
  RecordingDelegate delegate;
  Lot lot;
  int canceled = 0, finished = 0;
  for (int run = 0; run < 200; ++run) {
    SCOPED_TRACE(testing::Message() << "run " << run << ", L5KOV_TEST_SEED=" << lot.seed);
    const int patch = lot.draw(0, Moment::kPatches);
    const Moment moment{patch, std::chrono::microseconds(lot.draw(0, 500))};
    KovCalibrator made("L5-X240", "SN0001", 0, &delegate, "text", "", &delegate);
    const Canceled ended = cancelAt(moment, world, made, delegate);
    if (moment.beforeTheEnd()) {
      EXPECT_EQ(ended.code, OM_ERR_CANCELED);
    }
    if (ended.code == OM_ERR_CANCELED) {
      ++canceled;
      EXPECT_TRUE(made.isCanceled());
      EXPECT_EQ(ended.pauses, 1u);
    } else {
      ++finished;
      EXPECT_EQ(ended.code, OM_OK);
      EXPECT_EQ(ended.pauses, 0u);
    }
    expectToRestore(made);
  }
  std::cout << canceled << " canceled, " << finished << " finished, L5KOV_TEST_SEED=" << lot.seed
            << '\n';
}

TEST(Race, HandlesCopiedUsedAndDroppedByEightThreads) {
  FakeJvm jvm;
  KovWorld world(jvm);
  const MonitorObjects objects = world.addMonitor();
  world.addHistory(objects, 0);
  {
    const Monitor shared = lookUp();
    atOnce(8, [&] {
      for (int i = 0; i < 50; ++i) {
        const Monitor copy = shared;
        Monitor moved = copy;
        EXPECT_EQ(moved.getModelName(), "L5-X240");
        EXPECT_EQ(copy.getExtractCalibrationData().size(), 1u);
        EXPECT_EQ(copy.getCalibrationTargetData(0)["lmax"].asDouble(), 250.5);
      }
    });
  }
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST(Race, FirstUseByManyThreadsAtOnce) {
  FakeJvm jvm;
  jvm->forgetVm();
  KovWorld world(jvm);
  world.addMonitor();
  std::atomic<int> created{0};
  atOnce(8, [&] {
    created += Env()->createdVm() ? 1 : 0;
    KovMonitorManager::get().find();
    EXPECT_EQ(lookUp().getSerialNumber(), "SN0001");
    EXPECT_EQ(pocketjson::Value()["missing"].asInt(3), 3);
  });
  EXPECT_EQ(created, 1);
}

TEST(Race, DeleteJavaVmAgainstCallsOfOtherThreads) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  Env();
  atOnce(6, [&] {
    for (int i = 0; i < 50; ++i) {
      // A thread ends its own use of Java and nobody else's.
      inThread([] {
        EXPECT_EQ(lookUp().getModelName(), "L5-X240");
        DeleteJavaVM();
        EXPECT_EQ(messageOf<std::logic_error>([] { lookUp(); }),
                  "Java is no longer available on this thread: DeleteJavaVM() was called");
      });
      EXPECT_EQ(lookUp().getModelName(), "L5-X240");
    }
  });
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST(Race, JavaExceptionsTravelBetweenThreads) {
  FakeJvm jvm;
  KovWorld world(jvm);
  const MonitorObjects objects = world.addMonitor();
  jvm->script(objects.monitor, "getModel", fakejvm::throws("java/io/IOException", "lost"));
  {
    const Monitor shared = lookUp();
    atOnce(4, [&] {
      for (int i = 0; i < 50; ++i) {
        std::exception_ptr caught;
        inThread([&] {
          try {
            shared.getModelName();
          } catch (...) {
            caught = std::current_exception();
          }
        });
        EXPECT_EQ(
            messageOf<lumora::kov::java::JavaException>([&] { std::rethrow_exception(caught); }),
            "lost");
      }
    });
  }
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

}  // namespace
