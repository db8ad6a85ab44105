// SPDX-License-Identifier: MIT
// Handles used, copied and destroyed on other threads, also after the thread that made them ended.
#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <vector>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;

Monitor lookUp() { return KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001"); }

template <class Action>
void onAnotherThread(Action action) {
  std::thread(action).join();
}

class HandleOnThreads : public MonitorTest {
 protected:
  std::optional<Monitor> monitor;
};

TEST_F(HandleOnThreads, UsedAndDestroyedOnOtherThreads) {
  monitor = lookUp();
  onAnotherThread([&] {
    EXPECT_EQ(monitor->getModelName(), "L5-X240");
    monitor->setKeyLockState(OmCtrlKeyLockLocked);
  });
  onAnotherThread([&] { monitor.reset(); });
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST_F(HandleOnThreads, UsedAndDestroyedAfterTheThreadThatMadeItEnded) {
  onAnotherThread([&] { monitor = lookUp(); });
  EXPECT_EQ(jvm->attachedThreads(), 1) << "the thread has detached";
  EXPECT_EQ(monitor->getSerialNumber(), "SN0001");
  EXPECT_TRUE(monitor->getExtractCalibrationData().empty());
  monitor.reset();
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST_F(HandleOnThreads, DestroyedOnAThreadThatNeverCalledJava) {
  monitor = lookUp();
  onAnotherThread([&] {
    monitor.reset();
    EXPECT_EQ(jvm.log, (Lines{"GetEnv", "AttachCurrentThread", "DeleteGlobalRef monitor",
                              "DetachCurrentThread"}));
  });
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST_F(HandleOnThreads, DestroyedAfterDeleteJavaVmOnItsThread) {
  onAnotherThread([&] {
    const Monitor own = lookUp();
    lumora::kov::java::DeleteJavaVM();
    EXPECT_EQ(logicErrorOf([&] { own.getModelName(); }),
              "Java is no longer available on this thread: DeleteJavaVM() was called");
  });
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

#ifndef __MINGW32__  // gives thread_local memory back before it destroys what lies there
TEST_F(HandleOnThreads, DestroyedWithTheThreadsOwnObjects) {
  onAnotherThread([&] {
    // Made before the thread's Java environment, so it dies after it.
    static thread_local std::optional<Monitor> late;
    late.reset();
    late = lookUp();
  });
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
  EXPECT_EQ(jvm->attachedThreads(), 1);
}
#endif

TEST_F(HandleOnThreads, SharedControlIsAskedThroughEachThreadsOwnEnvironment) {
  monitor = lookUp();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([copy = *monitor] {
      for (int k = 0; k < 200; ++k) {
        EXPECT_EQ(copy.getModelName(), "L5-X240");
        EXPECT_EQ(copy.getEdidSerialNumber(), "00001234");
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  monitor.reset();
}

// No fixture: the process's first environment is that of a thread that ends.
TEST(HandleOfTheFirstThread, OutlivesTheThreadThatCreatedTheVirtualMachine) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  {
    std::optional<Monitor> monitor;
    onAnotherThread([&] {
      EXPECT_TRUE(lumora::kov::java::Env()->createdVm());
      monitor = lookUp();
    });
    EXPECT_EQ(monitor->getModelName(), "L5-X240");
    EXPECT_FALSE(lumora::kov::java::Env()->createdVm());
  }
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

// A Java exception may be kept, copied and dropped on another thread.
TEST_F(HandleOnThreads, JavaExceptionOutlivesTheThreadThatCaughtIt) {
  jvm->script(objects.monitor, "getModel", fakejvm::throws("java/io/IOException", "lost"));
  std::optional<lumora::kov::java::JavaException> kept;
  onAnotherThread([&] {
    try {
      lookUp().getModelName();
    } catch (const lumora::kov::java::JavaException& e) {
      kept.emplace(e);
    }
  });
  ASSERT_TRUE(kept.has_value());
  EXPECT_EQ(jvm->liveGlobalRefs(), 1);
  const lumora::kov::java::JavaException copy(*kept);
  EXPECT_EQ(jvm->liveGlobalRefs(), 2);
  kept.reset();
  EXPECT_STREQ(copy.what(), "lost");
  EXPECT_EQ(copy.getClassName(), "java.io.IOException");
}

}  // namespace
