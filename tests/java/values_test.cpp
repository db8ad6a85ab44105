// SPDX-License-Identifier: MIT
// Values on their way across: boxes, null, text, and wrappers at the edges of their life.
#include <gtest/gtest.h>

#include <new>

#include "java/java_classes.h"
#include "lumora/kov/java/java_exception.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::FakeJvm;
using kovtest::kOsdClass;
using kovtest::Lines;
using kovtest::messageOf;
namespace kov = lumora::kov::java;

class JavaValues : public testing::Test {
 protected:
  template <class W>
  W wrapperOf(const fakejvm::ObjectRef& object) {
    kov::JavaEnv* const env = kov::Env();
    return kov::wrap<W>(env, jvm->local(object));
  }
  kov::JApiOsd osd() { return wrapperOf<kov::JApiOsd>(jvm.object("osd", kOsdClass)); }

  FakeJvm jvm;
};

TEST_F(JavaValues, NullBoxedNumbersAreAbsentAndNeverUnboxed) {
  const auto integer = wrapperOf<kov::JInteger>(nullptr);
  const auto real = wrapperOf<kov::JDouble>(nullptr);
  jvm.log.clear();
  EXPECT_TRUE(integer.isNull());
  EXPECT_EQ(integer.valueOr(-7), -7);
  EXPECT_EQ(real.valueOr(0.5), 0.5);
  EXPECT_EQ(jvm.log, Lines{});
}

TEST_F(JavaValues, BoxedNumbersComeBackAsTheyWent) {
  EXPECT_EQ(kov::JInteger::create(kov::Env(), INT32_MIN).valueOr(0), INT32_MIN);
  EXPECT_EQ(kov::JDouble::create(kov::Env(), 0.1).valueOr(0), 0.1);
}

TEST_F(JavaValues, ListsAreBuiltAndRead) {
  const auto built = kov::JArrayList::create(kov::Env());
  EXPECT_TRUE(built.add(jvm->local(jvm.object("element", "java/lang/Object"))));
  EXPECT_TRUE(built.add(nullptr));
  const kov::JList read = kov::wrap<kov::JList>(kov::Env(), built.reference());
  EXPECT_EQ(read.size(), 2);
  EXPECT_EQ(jvm->resolve(read.get(0)), jvm->find("element"));
  EXPECT_EQ(read.get(1), nullptr);
}

TEST_F(JavaValues, AWrapperOfNullHoldsNoReferenceAndItsMembersThrow) {
  const auto nothing = wrapperOf<kov::JApiOsd>(nullptr);
  EXPECT_TRUE(nothing.isNull());
  jvm.log.clear();
  EXPECT_EQ(messageOf<kov::JavaException>([&] { nothing.isLocked(); }),
            "com/orva/kov/library/api/Osd.isLocked()Z called on null");
  EXPECT_EQ(jvm.log, Lines{"ExceptionClear"});
}

TEST_F(JavaValues, AWrapperOwnsOneGlobalReferenceAndLeavesTheLocalOne) {
  jobject local = nullptr;
  {
    kov::JavaEnv* const env = kov::Env();
    local = jvm->local(jvm.object("osd", kOsdClass));
    jvm.log.clear();
    const kov::JApiOsd wrapper = kov::wrap<kov::JApiOsd>(env, local);
    EXPECT_EQ(jvm.log, Lines{"NewGlobalRef osd"});
    EXPECT_NE(wrapper.reference(), local);
  }
  EXPECT_EQ(jvm.log, (Lines{"NewGlobalRef osd", "DeleteGlobalRef osd"}));
  EXPECT_NE(jvm->resolve(local), nullptr);
}

TEST_F(JavaValues, AMovedWrapperHandsItsReferenceOn) {
  kov::JApiOsd first = osd();
  jvm.log.clear();
  {
    const kov::JApiOsd second = std::move(first);
    EXPECT_TRUE(first.isNull());
    EXPECT_FALSE(second.isNull());
  }
  EXPECT_EQ(jvm.log, Lines{"DeleteGlobalRef osd"});
}

TEST_F(JavaValues, AWrapperStaysValidAfterAJavaException) {
  const kov::JApiOsd wrapper = osd();
  jvm->script(kOsdClass, "isLocked", fakejvm::throws("java/io/IOException", "x"));
  EXPECT_THROW(wrapper.isLocked(), kov::JavaException);
  jvm->script(kOsdClass, "isLocked", fakejvm::returns(true));
  EXPECT_TRUE(wrapper.isLocked());
}

TEST_F(JavaValues, AWrapperKeepsWorkingAfterTheRegistryHasBeenReleased) {
  jvm->script(kOsdClass, "isLocked", fakejvm::returns(true));
  const kov::JApiOsd wrapper = osd();
  kov::DeleteJavaVM();
  ASSERT_FALSE(kov::Env()->hasClasses());
  jvm.log.clear();
  EXPECT_TRUE(wrapper.isLocked());
  EXPECT_EQ(jvm.log,
            (Lines{"ExceptionClear", "CallBooleanMethodV osd.isLocked()", "ExceptionOccurred"}));
}

TEST_F(JavaValues, AWrapperFindsNoBindingForAnotherAfterTheRegistryHasBeenReleased) {
  jvm->script(kovtest::kMonitorClass, "getOsd", fakejvm::returns(jvm.object("osd", kOsdClass)));
  const auto monitor = wrapperOf<kov::JApiMonitor>(jvm.object("monitor", kovtest::kMonitorClass));
  kov::DeleteJavaVM();
  EXPECT_THROW(monitor.getOsd(), std::logic_error);
}

TEST_F(JavaValues, AGlobalReferenceThatCannotBeHadIsBadAlloc) {
  kov::JavaEnv* const env = kov::Env();
  const jobject local = jvm->local(jvm.object("osd", kOsdClass));
  jvm->failCall(jvm->callCount() + 1, fakejvm::Fault::nullResult());
  EXPECT_THROW(kov::wrap<kov::JApiOsd>(env, local), std::bad_alloc);
  EXPECT_EQ(jvm->faultsApplied(), 1);
}

// As in every plain call the error stays pending until the guard's first step discards it.
TEST_F(JavaValues, ATextThatCannotBeMadeReachesTheCallAsNull) {
  const auto target =
      wrapperOf<kov::JApiCalibrationTargetValues>(jvm.object("target", kovtest::kTargetClass));
  jvm->script(kovtest::kTargetClass, "setGammaModelTag", fakejvm::nothing());
  jvm.log.clear();
  jvm->failCall(jvm->callCount() + 1, fakejvm::Fault::nullResult());
  target.setGammaModelTag("tag");
  EXPECT_EQ(jvm.log, (Lines{"NewStringUTF \"tag\"", "ExceptionClear",
                            "CallVoidMethodV target.setGammaModelTag(null)", "ExceptionOccurred"}));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(JavaValues, AConstructorsExceptionIsAJavaException) {
  jvm->script("java/util/ArrayList", "<init>()V",
              fakejvm::throws("java/lang/OutOfMemoryError", "Java heap space"));
  EXPECT_EQ(messageOf<kov::JavaException>([] { kov::JArrayList::create(kov::Env()); }),
            "Java heap space");
}

TEST_F(JavaValues, NoLocalReferenceIsEverDeletedOneByOne) {
  jvm->script(kOsdClass, "isLocked", fakejvm::throws("java/io/IOException", "x"));
  const kov::JApiOsd wrapper = osd();
  EXPECT_THROW(wrapper.isLocked(), kov::JavaException);
  kov::JInteger::create(kov::Env(), 5).intValue();
  EXPECT_EQ(jvm.log.startingWith("DeleteLocalRef"), Lines{});
}

}  // namespace
