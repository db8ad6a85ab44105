// SPDX-License-Identifier: MIT
// Threads that come, use what others made, and end.
#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "l5kov.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::countOf;
using kovtest::FakeJvm;
using kovtest::inThread;
using kovtest::KovWorld;
using kovtest::Lines;
using kovtest::messageOf;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;
using lumora::kov::java::JavaEnv;

TEST(Threads, ASecondThreadAttachesAndDetachesAtItsEnd) {
  FakeJvm jvm;
  const JavaEnv* const first = Env();
  jvm.log.clear();
  inThread([&] {
    const JavaEnv* const second = Env();
    EXPECT_NE(second, first);
    EXPECT_NE(second->env(), first->env());
    EXPECT_EQ(second->vm(), first->vm());
    EXPECT_FALSE(second->createdVm());
    EXPECT_EQ(jvm.log.lines().at(0), "JNI_GetCreatedJavaVMs");
    EXPECT_EQ(jvm.log.lines().at(1), "AttachCurrentThread");
    EXPECT_EQ(jvm->attachedThreads(), 2);
  });
  EXPECT_EQ(jvm->logOfAllThreads().back().text, "DetachCurrentThread");
  EXPECT_EQ(countOf(jvm, "DetachCurrentThread"), 1);
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST(Threads, TheEndOfAnAttachedThreadRunsNoCollection) {
  FakeJvm jvm;
  Env();
  inThread([] { Env(); });
  EXPECT_EQ(countOf(jvm, "CallStaticVoidMethodV java/lang/System.gc()"), 0);
}

TEST(Threads, TheCreatingThreadThatEndsNeitherDetachesNorDestroysAnything) {
  FakeJvm jvm;
  inThread([] { EXPECT_TRUE(Env()->createdVm()); });
  const Lines lines = kovtest::allLines(jvm);
  EXPECT_EQ(lines.size(), 131u) << "search, create, 129 look-ups and nothing at the end";
  EXPECT_EQ(countOf(jvm, "DetachCurrentThread"), 0);
  EXPECT_EQ(jvm->attachedThreads(), 1);
  EXPECT_TRUE(jvm->vmExists());
  EXPECT_FALSE(Env()->createdVm()) << "later threads join";
  EXPECT_EQ(kovtest::createdJavaVms(jvm), 1);
}

TEST(Threads, EachThreadFindsItsOwnBindings) {
  FakeJvm jvm;
  const JavaEnv* const first = Env();
  inThread([&] { EXPECT_NE(&Env()->classes(), &first->classes()); });
  EXPECT_TRUE(first->hasClasses());
}

TEST(Threads, AHandleWorksOnAThreadThatDidNotMakeItAndAfterItsMakerEnded) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  std::optional<Monitor> handle;
  inThread([&] { handle = KovMonitorManager::get().getMonitors().at(0); });
  EXPECT_EQ(handle->getModelName(), "L5-X240");
  inThread([&] { EXPECT_EQ(handle->getSerialNumber(), "SN0001"); });
  EXPECT_EQ(handle->getConnectionType(), "USB");
}

TEST(Threads, AHandleIsReleasedThroughTheEnvironmentOfTheThreadThatReleasesIt) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  Env();
  std::optional<Monitor> handle;
  inThread([&] { handle = KovMonitorManager::get().getMonitors().at(0); });
  jvm.log.clear();
  handle.reset();
  EXPECT_EQ(jvm.log, Lines{"DeleteGlobalRef monitor"});
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST(Threads, AHandleReleasedOnAThreadThatNeverUsedJavaAttachesForThatOnly) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  std::optional<Monitor> handle = KovMonitorManager::get().getMonitors().at(0);
  inThread([&] {
    handle.reset();
    EXPECT_EQ(jvm.log, (Lines{"GetEnv", "AttachCurrentThread", "DeleteGlobalRef monitor",
                              "DetachCurrentThread"}));
  });
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST(Threads, AHandleReleasedOnAThreadThatTheHostAttachedLeavesItAttached) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  std::optional<Monitor> handle = KovMonitorManager::get().getMonitors().at(0);
  inThread([&] {
    jvm->attachThread();
    handle.reset();
    EXPECT_EQ(jvm.log, (Lines{"GetEnv", "DeleteGlobalRef monitor"}));
    EXPECT_EQ(jvm->attachedThreads(), 2);
    jvm->detachThread();
  });
}

TEST(Threads, AHandleReleasedAfterDeleteJavaVmOnItsThreadIsReleasedAllTheSame) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  Env();
  inThread([&] {
    std::optional<Monitor> handle = KovMonitorManager::get().getMonitors().at(0);
    DeleteJavaVM();
    jvm.log.clear();
    handle.reset();
    EXPECT_EQ(jvm.log, (Lines{"GetEnv", "AttachCurrentThread", "DeleteGlobalRef monitor",
                              "DetachCurrentThread"}));
  });
}

TEST(Threads, AHandleReleasedWhereTheThreadCannotBeAttachedIsLeftToTheVirtualMachine) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  std::optional<Monitor> handle = KovMonitorManager::get().getMonitors().at(0);
  inThread([&] {
    jvm->failCall(jvm->callCount() + 2, fakejvm::Fault::nullResult());
    handle.reset();
    EXPECT_EQ(jvm.log, (Lines{"GetEnv", "AttachCurrentThread"}));
  });
  EXPECT_EQ(jvm->faultsApplied(), 1);
  jvm.expectGlobalRefs(1);
}

TEST(Threads, HandlesMayBeCopiedAndReleasedOnManyThreadsAtOnce) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  std::optional<Monitor> handle = KovMonitorManager::get().getMonitors().at(0);
  kovtest::atOnce(8, [&] {
    const Monitor copy = *handle;
    EXPECT_EQ(copy.getModelName(), "L5-X240");
  });
  EXPECT_EQ(jvm->liveGlobalRefs("monitor"), 1);
  handle.reset();
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

// Thread-local objects are destroyed in the reverse order of their construction.
// mingw gives a thread's thread_local memory back before it destroys what lies there, so a program
// of its making cannot have such objects.
#ifndef __MINGW32__
// A thread's log from outside, in the order in which threads first appeared.
Lines linesOfThread(FakeJvm& jvm, int number) {
  Lines lines;
  for (const fakejvm::LogLine& line : jvm->logOfAllThreads()) {
    if (line.thread == number) lines.push_back(line.text);
  }
  return lines;
}

struct HandleOfThread {
  std::unique_ptr<Monitor> handle;
};

TEST(Threads, AThreadLocalHandleMadeBeforeEnvIsReleasedAfterTheThreadHasDetached) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  Env();
  jvm.log.clear();
  inThread([] {
    thread_local HandleOfThread kept;
    kept.handle.reset();
    kept.handle = std::make_unique<Monitor>(KovMonitorManager::get().getMonitors().at(0));
  });
  const Lines lines = linesOfThread(jvm, jvm->logOfAllThreads().back().thread);
  ASSERT_GE(lines.size(), 5u);
  EXPECT_EQ(Lines(lines.end() - 5, lines.end()),
            (Lines{"DetachCurrentThread", "GetEnv", "AttachCurrentThread",
                   "DeleteGlobalRef monitor", "DetachCurrentThread"}));
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST(Threads, AThreadLocalHandleMadeAfterEnvIsReleasedBeforeTheThreadDetaches) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  Env();
  inThread([] {
    Env();
    thread_local HandleOfThread kept;
    kept.handle = std::make_unique<Monitor>(KovMonitorManager::get().getMonitors().at(0));
  });
  const Lines lines = linesOfThread(jvm, jvm->logOfAllThreads().back().thread);
  ASSERT_GE(lines.size(), 2u);
  EXPECT_EQ(Lines(lines.end() - 2, lines.end()),
            (Lines{"DeleteGlobalRef monitor", "DetachCurrentThread"}));
}

// What a thread-local object's destructor gets when it asks for Java after the thread let go of it.
struct AsksAtTheEnd {
  std::string* answer = nullptr;
  ~AsksAtTheEnd() {
    *answer = messageOf<std::logic_error>([] { Env(); });
  }
};

TEST(Threads, EnvWhileTheThreadsObjectsAreDestroyedThrows) {
  FakeJvm jvm;
  std::string answer;
  inThread([&] {
    thread_local AsksAtTheEnd last;
    last.answer = &answer;
    Env();
  });
  EXPECT_EQ(answer, "Java is no longer available: the thread is ending");
}
#endif

}  // namespace
