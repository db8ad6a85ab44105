// SPDX-License-Identifier: MIT
// Threads against threads. Each test also runs under ThreadSanitizer; the waits are the step
// clock's, so a canceled run costs no ten seconds.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>
#include <vector>

#include "tests/calibration/calibrator_fixture.h"
#include "tests/java/threads.h"
#include "tests/step_clock/step_clock.h"

namespace {

using namespace kovtest;
using lumora::Monitor;
using lumora::kov::KovCalibrator;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;

Monitor lookUp() {
  return KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001");
}

// 200 runs, each canceled at another moment of its callbacks; the moment drifts with the machine.
TEST(Race, CancelAgainstExecuteEndsEachRunInItsDocumentedCode) {
  FakeJvm jvm;
  Registered registered(jvm);
  KovWorld world(jvm);
  world.addMonitor();
  RecordingDelegate delegate;
  int canceled = 0, finished = 0;
  for (int run = 0; run < 200; ++run) {
    SCOPED_TRACE(run);
    KovCalibrator made("L5-X240", "SN0001", 0, &delegate, "text", "", &delegate);
    std::atomic<int> patches{0};
    delegate.onShow = [&](auto&) { ++patches; };
    // Most runs go on until they notice the cancel, as a monitor would; every twenty-first ends by
    // itself while the cancel comes.
    const int moment = run % 21;
    world.onCalibrate([moment](CalibrationRun& calibration) {
      for (int i = 0; i < 20 || moment < 20; ++i) {
        calibration.draw(i, i, i);
        if (!calibration.measure()) return;
        if (i > moment) std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
      calibration.finishWith(250, 0.5, 812);
    });
    std::atomic<bool> over{false};
    std::thread canceler([&] {
      // Not before the first patch: a cancel before the run begins is lost, and the run endless.
      while (patches < std::max(moment, 1) && !over) std::this_thread::yield();
      EXPECT_EQ(made.cancel(), OM_OK);
    });
    const std::size_t waitsBefore = StepClock::get().waits().size();
    const OmError ended = made.execute();
    over = true;
    canceler.join();
    const std::size_t waits = StepClock::get().waits().size() - waitsBefore;
    if (ended == OM_ERR_CANCELED) {
      ++canceled;
      EXPECT_TRUE(made.isCanceled());
      EXPECT_EQ(waits, 1u) << "the pause";
    } else {
      ++finished;
      EXPECT_EQ(ended, OM_OK);
      EXPECT_EQ(waits, 0u);
    }
    EXPECT_EQ(made.restore(), OM_OK);
    delegate.onShow = nullptr;
  }
  RecordProperty("canceled", canceled);
  RecordProperty("finished", finished);
  EXPECT_EQ(canceled + finished, 200);
  EXPECT_GE(canceled, 191) << "all but those that ended by themselves";
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
