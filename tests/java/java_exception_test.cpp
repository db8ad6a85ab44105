// SPDX-License-Identifier: MIT
// A Java exception on its way through native code: text, class, and references that are counted.
#include <gtest/gtest.h>

#include <exception>
#include <optional>
#include <type_traits>

#include "l5kov.h"
#include "tests/java/threads.h"
#include "tests/support/kov_world.h"

namespace {

using kovtest::FakeJvm;
using kovtest::inThread;
using kovtest::KovWorld;
using kovtest::Lines;
using lumora::kov::KovMonitorManager;
using lumora::kov::java::DeleteJavaVM;
using lumora::kov::java::Env;
using lumora::kov::java::JavaException;

static_assert(std::is_base_of_v<std::runtime_error, JavaException>);

constexpr const char* kIo = "java/io/IOException";

// A world whose search fails with a named exception object "failure".
class JavaExceptionTest : public testing::Test {
 protected:
  FakeJvm jvm;
  KovWorld world{jvm};

  void fail(fakejvm::Value message) {
    const auto failure = jvm.object("failure", kIo);
    failure->setField("message", std::move(message));
    jvm->script(kovtest::kLibraryClass, "startMonitorSearch",
                [failure](fakejvm::Call&) -> fakejvm::Value { throw fakejvm::JavaThrow(failure); });
  }
  static std::exception_ptr caught() {
    try {
      KovMonitorManager::get().find();
    } catch (...) {
      return std::current_exception();
    }
    return nullptr;
  }
};

TEST_F(JavaExceptionTest, CarriesMessageAndDottedClassName) {
  fail("Error sending data");
  try {
    KovMonitorManager::get().find();
    FAIL() << "no exception";
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ(e.what(), "Error sending data");
    EXPECT_EQ(dynamic_cast<const JavaException&>(e).getClassName(), "java.io.IOException");
  }
}

TEST_F(JavaExceptionTest, NullMessageIsTheEmptyTextAndTheClassNameIsStillSet) {
  fail(nullptr);
  try {
    KovMonitorManager::get().find();
    FAIL() << "no exception";
  } catch (const JavaException& e) {
    EXPECT_STREQ(e.what(), "");
    EXPECT_EQ(e.getClassName(), "java.io.IOException");
  }
}

TEST_F(JavaExceptionTest, LeavesNoJavaExceptionPending) {
  fail("x");
  EXPECT_THROW(KovMonitorManager::get().find(), JavaException);
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(JavaExceptionTest, HoldsItsObjectThroughAGlobalReference) {
  fail("x");
  try {
    KovMonitorManager::get().find();
    FAIL() << "no exception";
  } catch (const JavaException& e) {
    EXPECT_EQ(jvm->liveGlobalRefs("failure"), 1);
    EXPECT_EQ(jvm->resolve(e.getThrowable()), jvm->find("failure"));
  }
  EXPECT_EQ(jvm->liveGlobalRefs("failure"), 0);
}

TEST_F(JavaExceptionTest, ACopyHoldsAReferenceOfItsOwnAndBothAreReleased) {
  fail("x");
  try {
    KovMonitorManager::get().find();
  } catch (const JavaException& original) {
    {
      const JavaException copy = original;
      EXPECT_EQ(jvm->liveGlobalRefs("failure"), 2);
      EXPECT_NE(copy.getThrowable(), original.getThrowable());
      EXPECT_STREQ(copy.what(), "x");
      EXPECT_EQ(copy.getClassName(), "java.io.IOException");
    }
    EXPECT_EQ(jvm->liveGlobalRefs("failure"), 1);
  }
  EXPECT_EQ(jvm->liveGlobalRefs("failure"), 0);
}

TEST_F(JavaExceptionTest, ACopyOutlivesTheOriginal) {
  fail("x");
  std::optional<JavaException> copy;
  try {
    KovMonitorManager::get().find();
  } catch (const JavaException& e) {
    copy.emplace(e);
  }
  EXPECT_EQ(jvm->liveGlobalRefs("failure"), 1);
  EXPECT_EQ(jvm->resolve(copy->getThrowable()), jvm->find("failure"));
  copy.reset();
  EXPECT_EQ(jvm->liveGlobalRefs("failure"), 0);
}

TEST_F(JavaExceptionTest, MadeByAHostTakesAReferenceAndLeavesTheGivenOne) {
  const auto failure = jvm.object("failure", kIo);
  Env();
  const jobject local = jvm->local(failure);
  {
    const JavaException made(Env()->env(), reinterpret_cast<jthrowable>(local),
                             "java.io.IOException", "own");
    EXPECT_EQ(jvm->liveGlobalRefs("failure"), 1);
    EXPECT_STREQ(made.what(), "own");
  }
  EXPECT_EQ(jvm->liveGlobalRefs("failure"), 0);
  EXPECT_EQ(jvm->resolve(local), failure);
}

TEST_F(JavaExceptionTest, WithoutAJavaObjectHasNothingToRelease) {
  Env();
  jvm.log.clear();
  {
    const JavaException made(Env()->env(), nullptr, "java.lang.NoSuchMethodError", "m");
    const JavaException copy = made;
    EXPECT_EQ(copy.getThrowable(), nullptr);
  }
  EXPECT_EQ(jvm.log, Lines{});
}

TEST_F(JavaExceptionTest, DestroyedOnAThreadThatNeverUsedJava) {
  fail("x");
  std::exception_ptr carried = caught();
  inThread([&] {
    carried = nullptr;
    EXPECT_EQ(jvm.log, (Lines{"GetEnv", "AttachCurrentThread", "DeleteGlobalRef failure",
                              "DetachCurrentThread"}));
  });
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST_F(JavaExceptionTest, DestroyedOnAThreadWithAnEnvironmentOfItsOwn) {
  fail("x");
  std::exception_ptr carried = caught();
  inThread([&] {
    Env();
    jvm.log.clear();
    carried = nullptr;
    EXPECT_EQ(jvm.log, Lines{"DeleteGlobalRef failure"});
  });
}

TEST_F(JavaExceptionTest, DestroyedAfterTheThreadThatCaughtItHasEnded) {
  fail("x");
  Env();
  std::exception_ptr carried;
  inThread([&] { carried = caught(); });
  ASSERT_NE(carried, nullptr);
  EXPECT_EQ(jvm->liveGlobalRefs("failure"), 1);
  jvm.log.clear();
  carried = nullptr;
  EXPECT_EQ(jvm.log, Lines{"DeleteGlobalRef failure"});
}

TEST_F(JavaExceptionTest, CopiedAndDestroyedAfterItsThreadHasDetached) {
  fail("x");
  Env();
  inThread([&] {
    try {
      KovMonitorManager::get().find();
    } catch (const JavaException& e) {
      DeleteJavaVM();
      const JavaException copy = e;
      EXPECT_EQ(jvm->liveGlobalRefs("failure"), 2);
    }
  });
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

TEST_F(JavaExceptionTest, RethrownOnAnotherThread) {
  fail("travels");
  std::exception_ptr carried = caught();
  inThread([&] {
    try {
      std::rethrow_exception(std::move(carried));
    } catch (const JavaException& e) {
      EXPECT_STREQ(e.what(), "travels");
      const JavaException copy = e;
      EXPECT_EQ(jvm->resolve(copy.getThrowable()), jvm->find("failure"));
    }
  });
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
}

}  // namespace
