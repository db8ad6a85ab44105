// SPDX-License-Identifier: MIT
// Wrappers that outlive the operation, or the thread, that made them.
#include <gtest/gtest.h>

#include <memory>

#include "java/java_classes.h"
#include "java/kept.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::FakeJvm;
using kovtest::inThread;
using kovtest::kOsdClass;
using kovtest::Lines;
namespace kov = lumora::kov::java;

using KeptOsd = kov::Kept<kov::JApiOsd>;

class KeptWrapper : public testing::Test {
 protected:
  std::unique_ptr<KeptOsd> keep() {
    jvm->script(kOsdClass, "isLocked", fakejvm::returns(true));
    kov::JavaEnv* const env = kov::Env();
    const jobject local = jvm->local(jvm.object("osd", kOsdClass));
    return std::make_unique<KeptOsd>(kov::wrap<kov::JApiOsd>(env, local));
  }

  FakeJvm jvm;
};

TEST_F(KeptWrapper, IsCalledThroughTheCallingThreadsEnvironment) {
  const auto kept = keep();
  inThread([&] {
    kov::JavaEnv* const here = kov::Env();
    jvm.log.clear();
    EXPECT_TRUE(kept->on(here)->isLocked());
    EXPECT_EQ(jvm.log,
              (Lines{"ExceptionClear", "CallBooleanMethodV osd.isLocked()", "ExceptionOccurred"}));
  });
}

TEST_F(KeptWrapper, BorrowingTakesAndReleasesNoReference) {
  const auto kept = keep();
  jvm.log.clear();
  {
    const auto here = kept->on(kov::Env());
    EXPECT_EQ((*here).reference(), kept->reference());
  }
  EXPECT_EQ(jvm.log, Lines{});
  EXPECT_EQ(jvm->liveGlobalRefs("osd"), 1);
}

TEST_F(KeptWrapper, IsReleasedThroughTheReleasingThreadsEnvironment) {
  auto kept = keep();
  inThread([&] {
    kov::Env();
    jvm.log.clear();
    kept.reset();
    EXPECT_EQ(jvm.log, Lines{"DeleteGlobalRef osd"});
  });
}

TEST_F(KeptWrapper, OutlivesTheThreadThatMadeIt) {
  kov::Env();
  std::unique_ptr<KeptOsd> kept;
  inThread([&] { kept = keep(); });
  EXPECT_TRUE(kept->on(kov::Env())->isLocked());
  kept.reset();
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST_F(KeptWrapper, IsReleasedOnceAfterTheWrapperWasMovedIntoIt) {
  auto kept = keep();
  jvm.log.clear();
  kept.reset();
  EXPECT_EQ(jvm.log, Lines{"DeleteGlobalRef osd"});
}

TEST_F(KeptWrapper, OfNullReleasesNothing) {
  kov::JavaEnv* const env = kov::Env();
  jvm.log.clear();
  { const KeptOsd kept(kov::wrap<kov::JApiOsd>(env, nullptr)); }
  EXPECT_EQ(jvm.log, Lines{});
}

TEST(ReleaseBeforeJava, CallsNothingWhileNoVirtualMachineWasEverJoined) {
  FakeJvm jvm;
  kov::releaseGlobalRef(nullptr);
  kov::releaseGlobalRef(reinterpret_cast<jobject>(&jvm));
  EXPECT_EQ(jvm.log, Lines{});
}

}  // namespace
