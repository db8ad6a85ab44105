// SPDX-License-Identifier: MIT
// What the first Env() of a thread looks up, and what happens when it is not there.
#include <gtest/gtest.h>

#include <algorithm>

#include "l5kov.h"
#include "tests/java/golden.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::FakeJvm;
using kovtest::golden;
using kovtest::inThread;
using kovtest::KovWorld;
using kovtest::Lines;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::Env;
using lumora::kov::java::JavaException;

constexpr std::size_t kStartUpCalls = 2;  // search and create, or search and attach

Lines withoutStartUp(const Lines& lines) { return {lines.begin() + kStartUpCalls, lines.end()}; }

int countPrefix(const Lines& lines, const std::string& prefix) {
  return static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.rfind(prefix, 0) == 0;
  }));
}

std::ptrdiff_t indexOf(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) - lines.begin();
}

TEST(LookUps, FirstEnvMakesExactlyTheGoldenSequence) {
  FakeJvm jvm;
  Env();
  EXPECT_EQ(withoutStartUp(jvm.log.lines()), golden("first_env_look_ups.txt"));
}

TEST(LookUps, AreSeventeenClassesAndAHundredAndTwelveMembers) {
  FakeJvm jvm;
  Env();
  const Lines lines = withoutStartUp(jvm.log.lines());
  EXPECT_EQ(countPrefix(lines, "FindClass "), 17);
  EXPECT_EQ(countPrefix(lines, "GetMethodID ") + countPrefix(lines, "GetStaticMethodID "), 112);
  EXPECT_EQ(lines.size(), 129u);
}

TEST(LookUps, EveryThreadMakesThemForItself) {
  FakeJvm jvm;
  Env();
  inThread([&] {
    Env();
    EXPECT_EQ(withoutStartUp(jvm.log.lines()), golden("first_env_look_ups.txt"));
  });
}

TEST(LookUps, MeasurementDeviceTypeComesBeforeLookUpTable) {
  FakeJvm jvm;
  Env();
  const Lines classes = jvm.log.startingWith("FindClass ");
  EXPECT_EQ(classes.at(12), "FindClass com/orva/kov/library/api/MeasurementDeviceType");
  EXPECT_EQ(classes.at(13), "FindClass com/orva/kov/library/api/LookUpTable");
}

TEST(LookUps, GetInstanceIsLookedUpFirstAsAStaticMemberOfTheImplementation) {
  FakeJvm jvm;
  Env();
  const Lines lines = jvm.log.lines();
  const auto at = indexOf(lines, "FindClass com/orva/kov/library/impl/KovMonitorLibrary");
  ASSERT_LT(at + 1, static_cast<std::ptrdiff_t>(lines.size()));
  EXPECT_EQ(lines[static_cast<std::size_t>(at) + 1],
            "GetStaticMethodID com/orva/kov/library/impl/KovMonitorLibrary.getInstance"
            "()Lcom/orva/kov/library/api/MonitorLibrary;");
}

TEST(LookUps, SetExecuteDateIsResolvedTwiceOncePerOverload) {
  FakeJvm jvm;
  Env();
  const std::string member =
      "GetMethodID com/orva/kov/library/api/ExtractedCalibrationData.setExecuteDate";
  EXPECT_EQ(jvm.log.startingWith(member),
            (Lines{member + "(Ljava/lang/String;)V", member + "(Ljava/util/Date;)V"}));
}

TEST(LookUps, EmptyFirstSlotsOfClassAndSystemAreNotLookedUp) {
  FakeJvm jvm;
  Env();
  EXPECT_EQ(jvm.log.startingWith("GetMethodID java/lang/Class."),
            Lines{"GetMethodID java/lang/Class.getName()Ljava/lang/String;"});
  EXPECT_EQ(jvm.log.startingWith("GetMethodID java/lang/System."), Lines{});
  EXPECT_EQ(jvm.log.startingWith("GetStaticMethodID java/lang/System."),
            Lines{"GetStaticMethodID java/lang/System.gc()V"});
}

TEST(LookUps, OfAMissingClassSkipItsMembersAndGoOn) {
  FakeJvm jvm;
  jvm->missingClass(kovtest::kOsdClass);
  jvm->missingClass("java/util/ArrayList");
  jvm.allowPendingException();
  Env();
  Lines expected = golden("first_env_look_ups.txt");
  std::erase_if(expected, [](const std::string& line) {
    return line.rfind("GetMethodID com/orva/kov/library/api/Osd.", 0) == 0 ||
           line.rfind("GetMethodID java/util/ArrayList.", 0) == 0;
  });
  EXPECT_EQ(expected.size(), 129u - 3u - 4u);
  EXPECT_EQ(withoutStartUp(jvm.log.lines()), expected);
}

TEST(LookUps, OfAMissingMemberDoNotFailEnvAndLeaveTheExceptionPending) {
  FakeJvm jvm;
  jvm->missingMember(kovtest::kMonitorClass, "getModel", "()Ljava/lang/String;");
  jvm.allowPendingException();
  EXPECT_TRUE(Env()->hasClasses());
  ASSERT_NE(jvm->pendingException(), nullptr);
  EXPECT_EQ(jvm->pendingException()->className, "java/lang/NoSuchMethodError");
  EXPECT_EQ(withoutStartUp(jvm.log.lines()), golden("first_env_look_ups.txt"));
}

TEST(LookUps, AMissingClassDoesNotFailEnvAndLeavesTheExceptionPending) {
  FakeJvm jvm;
  jvm->missingClass(kovtest::kLibraryClass);
  jvm.allowPendingException();
  EXPECT_TRUE(Env()->hasClasses());
  ASSERT_NE(jvm->pendingException(), nullptr);
  EXPECT_EQ(jvm->pendingException()->className, "java/lang/NoClassDefFoundError");
}

TEST(LookUps, ThePendingExceptionOfAFailedOneIsDiscardedByTheNextGuardedCall) {
  FakeJvm jvm;
  KovWorld world(jvm);
  jvm->missingMember(kovtest::kOsdClass, "isLocked", "()Z");
  Env();
  ASSERT_NE(jvm->pendingException(), nullptr);
  EXPECT_EQ(KovMonitorManager::get().getMonitors().size(), 0u);
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

// A jar with another signature is a jar without the member.
TEST(LookUps, AMemberWithAnotherSignatureCannotBeCalledAndSaysSo) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  jvm->missingMember(kovtest::kMonitorClass, "getWorkingHours", "()I");
  const lumora::Monitor monitor = KovMonitorManager::get().getMonitors().at(0);
  try {
    monitor.getUsageTime();
    FAIL() << "no exception";
  } catch (const JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.NoSuchMethodError");
    EXPECT_STREQ(e.what(), "com/orva/kov/library/api/Monitor.getWorkingHours()I");
    EXPECT_EQ(e.getThrowable(), nullptr);
  }
  EXPECT_EQ(monitor.getModelName(), "L5-X240") << "the handle stays usable";
}

TEST(LookUps, NoneIsMadeByNameOnTheCallPath) {
  FakeJvm jvm;
  KovWorld world(jvm);
  world.addMonitor();
  const lumora::Monitor monitor = KovMonitorManager::get().getMonitors().at(0);
  jvm.log.clear();
  monitor.getModelName();
  monitor.isKeyLockSupported();
  EXPECT_EQ(jvm.log.startingWith("FindClass"), Lines{});
  EXPECT_EQ(jvm.log.startingWith("Get"), (Lines{"GetStringUTFChars \"L5-X240\""}));
}

}  // namespace
