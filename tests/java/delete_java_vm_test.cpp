// SPDX-License-Identifier: MIT
// A thread lets go of Java; the virtual machine goes on.
#include <gtest/gtest.h>

#include <stdexcept>

#include "l5kov.h"
#include "tests/java/golden.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::countOf;
using kovtest::FakeJvm;
using kovtest::golden;
using kovtest::inThread;
using kovtest::KovWorld;
using kovtest::Lines;
using kovtest::messageOf;
using lumora::Monitor;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;
using lumora::kov::java::JavaEnv;
using lumora::kov::java::JavaException;

constexpr const char* kReleased =
    "Java is no longer available on this thread: DeleteJavaVM() was called";
constexpr const char* kCollection = "CallStaticVoidMethodV java/lang/System.gc()";

TEST(DeleteJavaVm, OnTheCreatingThreadCollectsOnceAndStaysAttached) {
  FakeJvm jvm;
  const JavaEnv* env = Env();
  jvm.log.clear();
  DeleteJavaVM();
  EXPECT_EQ(jvm.log,
            (Lines{"JNI_GetCreatedJavaVMs", "ExceptionClear", kCollection, "ExceptionOccurred"}));
  EXPECT_FALSE(env->hasClasses());
  EXPECT_NE(env->env(), nullptr);
  EXPECT_TRUE(jvm->vmExists());
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST(DeleteJavaVm, CollectsBeforeTheBindingsEnd) {
  FakeJvm jvm;
  const JavaEnv* env = Env();
  bool hadClasses = false;
  jvm->script("java/lang/System", "gc", [&](fakejvm::Call&) -> fakejvm::Value {
    hadClasses = env->hasClasses();
    return {};
  });
  DeleteJavaVM();
  EXPECT_TRUE(hadClasses);
  EXPECT_FALSE(env->hasClasses());
}

TEST(DeleteJavaVm, OnAnotherThreadDetachesWithoutACollection) {
  FakeJvm jvm;
  Env();
  inThread([&] {
    const JavaEnv* env = Env();
    jvm.log.clear();
    DeleteJavaVM();
    EXPECT_EQ(jvm.log, (Lines{"JNI_GetCreatedJavaVMs", "DetachCurrentThread"}));
    EXPECT_FALSE(env->hasClasses());
    EXPECT_EQ(env->env(), nullptr);
    EXPECT_EQ(jvm->attachedThreads(), 1);
  });
}

TEST(DeleteJavaVm, OnAThreadThatJoinedTheHostsVirtualMachineDetaches) {
  FakeJvm jvm;
  jvm->preCreateVm();
  Env();
  jvm.log.clear();
  DeleteJavaVM();
  EXPECT_EQ(jvm.log, (Lines{"JNI_GetCreatedJavaVMs", "DetachCurrentThread"}));
  EXPECT_TRUE(jvm->vmExists());
}

TEST(DeleteJavaVm, OnAThreadThatNeverUsedJavaAttachesAndBindsFirst) {
  FakeJvm jvm;
  Env();
  inThread([&] {
    DeleteJavaVM();
    // The search of DeleteJavaVM() and that of the thread's first Env().
    Lines expected{"JNI_GetCreatedJavaVMs", "JNI_GetCreatedJavaVMs", "AttachCurrentThread"};
    const Lines lookUps = golden("first_env_look_ups.txt");
    expected.insert(expected.end(), lookUps.begin(), lookUps.end());
    expected.push_back("DetachCurrentThread");
    EXPECT_EQ(jvm.log, expected);
  });
}

TEST(DeleteJavaVm, WithoutAVirtualMachineDoesNothing) {
  FakeJvm jvm;
  DeleteJavaVM();
  EXPECT_EQ(jvm.log, Lines{"JNI_GetCreatedJavaVMs"});
  EXPECT_FALSE(jvm->vmExists());
}

TEST(DeleteJavaVm, DoesNothingWhenTheSearchForAVirtualMachineFails) {
  FakeJvm jvm;
  const JavaEnv* env = Env();
  jvm.log.clear();
  jvm->setCreatedVmsResult(JNI_ERR);
  DeleteJavaVM();
  EXPECT_EQ(jvm.log, Lines{"JNI_GetCreatedJavaVMs"});
  EXPECT_TRUE(env->hasClasses());
}

TEST(DeleteJavaVm, TwiceOnTheCreatingThreadCollectsOnce) {
  FakeJvm jvm;
  Env();
  DeleteJavaVM();
  jvm.log.clear();
  DeleteJavaVM();
  EXPECT_EQ(jvm.log, Lines{"JNI_GetCreatedJavaVMs"});
}

TEST(DeleteJavaVm, TwiceOnAnotherThreadDetachesOnceAlsoAtItsEnd) {
  FakeJvm jvm;
  Env();
  inThread([] {
    Env();
    DeleteJavaVM();
    DeleteJavaVM();
  });
  EXPECT_EQ(countOf(jvm, "DetachCurrentThread"), 1);
}

TEST(DeleteJavaVm, LeavesTheOtherThreadsAlone) {
  FakeJvm jvm;
  KovWorld world(jvm);
  Env();
  inThread([] { DeleteJavaVM(); });
  EXPECT_TRUE(Env()->hasClasses());
  KovMonitorManager::get().find();
}

TEST(DeleteJavaVm, NeverDestroysTheVirtualMachine) {
  FakeJvm jvm;
  inThread([] {
    Env();
    DeleteJavaVM();
  });
  inThread([] { DeleteJavaVM(); });
  EXPECT_EQ(countOf(jvm, "DestroyJavaVM"), 0);
  EXPECT_TRUE(jvm->vmExists());
}

TEST(DeleteJavaVm, AFailedCollectionIsAJavaExceptionAndTheThreadKeepsItsBindings) {
  FakeJvm jvm;
  jvm->script("java/lang/System", "gc", fakejvm::throws("java/lang/OutOfMemoryError", "Metaspace"));
  const JavaEnv* env = Env();
  EXPECT_EQ(messageOf<JavaException>([] { DeleteJavaVM(); }), "Metaspace");
  EXPECT_TRUE(env->hasClasses());
}

TEST(EnvAfterDeleteJavaVm, GivesTheSameObjectWithoutBindingsOnTheCreatingThread) {
  FakeJvm jvm;
  JavaEnv* const before = Env();
  DeleteJavaVM();
  jvm.log.clear();
  EXPECT_EQ(Env(), before);
  EXPECT_EQ(jvm.log, Lines{});
  EXPECT_FALSE(Env()->hasClasses());
  EXPECT_EQ(messageOf<std::logic_error>([] { Env()->classes(); }), kReleased);
}

TEST(EnvAfterDeleteJavaVm, GivesTheSameObjectWithoutBindingsOnAnotherThread) {
  FakeJvm jvm;
  Env();
  inThread([&] {
    JavaEnv* const before = Env();
    DeleteJavaVM();
    jvm.log.clear();
    EXPECT_EQ(Env(), before);
    EXPECT_EQ(jvm.log, Lines{});
    EXPECT_FALSE(Env()->hasClasses());
  });
}

TEST(OperationsAfterDeleteJavaVm, ThrowALogicErrorThatSaysSo) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  const Monitor monitor = KovMonitorManager::get().getMonitors().at(0);
  DeleteJavaVM();
  jvm.log.clear();
  EXPECT_EQ(messageOf<std::logic_error>([] { KovMonitorManager::get().find(); }), kReleased);
  EXPECT_EQ(messageOf<std::logic_error>([] { KovMonitorManager::get().getMonitors(); }), kReleased);
  EXPECT_EQ(messageOf<std::logic_error>(
                [] { KovMonitorManager::get().getMonitorByName("L5-X240", "SN0001"); }),
            kReleased);
  EXPECT_EQ(messageOf<std::logic_error>([&] { monitor.getModelName(); }), kReleased);
  EXPECT_EQ(messageOf<std::logic_error>([&] { monitor.setCalModeValue(0); }), kReleased);
  EXPECT_EQ(messageOf<std::logic_error>([&] { monitor.getExtractCalibrationData(); }), kReleased);
  EXPECT_EQ(jvm.log, Lines{}) << "Java is not asked";
}

TEST(OperationsAfterDeleteJavaVm, WorkOnOtherThreads) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  const Monitor monitor = KovMonitorManager::get().getMonitors().at(0);
  DeleteJavaVM();
  inThread([&] { EXPECT_EQ(monitor.getModelName(), "L5-X240"); });
}

}  // namespace
