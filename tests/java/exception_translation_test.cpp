// SPDX-License-Identifier: MIT
// How a Java exception is turned into a JavaException: the exact sequence, and what is left of it
// when parts of it fail.
#include <gtest/gtest.h>

#include "java/java_classes.h"
#include "lumora/kov/java/java_exception.h"
#include "tests/support/fake_jvm.h"

namespace {

using kovtest::FakeJvm;
using kovtest::Lines;
using lumora::kov::java::Env;
using lumora::kov::java::JApiOsd;
using lumora::kov::java::JavaException;
using lumora::kov::java::wrap;

constexpr const char* kOsd = "com/orva/kov/library/api/Osd";
constexpr const char* kThrowable = "java/lang/Throwable";
constexpr const char* kClass = "java/lang/Class";

struct Translated {
  std::string message;
  std::string className;
  bool hasThrowable;

  friend bool operator==(const Translated&, const Translated&) = default;
  friend void PrintTo(const Translated& t, std::ostream* out) {
    *out << '"' << t.message << "\" of \"" << t.className << '"'
         << (t.hasThrowable ? "" : " without an object");
  }
};

class ExceptionTranslation : public testing::Test {
 protected:
  ExceptionTranslation() {
    failure->setField("message", "broken");
    jvm->script(osd, "isLocked",
                [this](fakejvm::Call&) -> fakejvm::Value { throw fakejvm::JavaThrow(failure); });
  }

  // The lines of the failing call, until the JavaException is destroyed.
  Translated translate() {
    jvm.log.clear();
    try {
      wrapper.isLocked();
    } catch (const JavaException& e) {
      caughtAt = jvm.log.lines().size();
      return {e.what(), e.getClassName(), e.getThrowable() != nullptr};
    }
    ADD_FAILURE() << "no exception";
    return {};
  }

  FakeJvm jvm;
  const fakejvm::ObjectRef osd = jvm.object("osd", kOsd);
  const fakejvm::ObjectRef failure = jvm.object("failure", "com/orva/dt/Failure");
  const JApiOsd wrapper = [&] {
    lumora::kov::java::JavaEnv* const env = Env();
    return wrap<JApiOsd>(env, jvm->local(osd));
  }();
  std::size_t caughtAt = 0;
};

TEST_F(ExceptionTranslation, MakesExactlyThisSequence) {
  EXPECT_EQ(translate(), (Translated{"broken", "com.orva.dt.Failure", true}));
  EXPECT_EQ(jvm.log, (Lines{
                         "ExceptionClear",
                         "CallBooleanMethodV osd.isLocked()",
                         "ExceptionOccurred",
                         "ExceptionClear",
                         // the message
                         "FindClass java/lang/Throwable",
                         "GetMethodID java/lang/Throwable.getMessage()Ljava/lang/String;",
                         "CallObjectMethodV failure.getMessage()",
                         "ExceptionCheck",
                         "GetStringUTFChars \"broken\"",
                         "ReleaseStringUTFChars \"broken\"",
                         // the class name
                         "FindClass java/lang/Class",
                         "GetMethodID java/lang/Class.getName()Ljava/lang/String;",
                         "FindClass java/lang/Throwable",
                         "GetMethodID java/lang/Throwable.getClass()Ljava/lang/Class;",
                         "CallObjectMethodV failure.getClass()",
                         "ExceptionCheck",
                         "CallObjectMethodV com/orva/dt/Failure.getName()",
                         "ExceptionCheck",
                         "GetStringUTFChars \"com.orva.dt.Failure\"",
                         "ReleaseStringUTFChars \"com.orva.dt.Failure\"",
                         // the exception's life
                         "NewGlobalRef failure",
                         "DeleteGlobalRef failure",
                     }));
  EXPECT_EQ(jvm->xcheckWarnings(), Lines{});
}

TEST_F(ExceptionTranslation, LooksEverythingUpAfreshEachTime) {
  translate();
  const Lines first = jvm.log.lines();
  translate();
  EXPECT_EQ(jvm.log, first);
  EXPECT_EQ(jvm.log.startingWith("FindClass").size(), 3u);
}

TEST_F(ExceptionTranslation, NullMessageIsEmptyAndTakesNoCharacters) {
  failure->setField("message", nullptr);
  EXPECT_EQ(translate(), (Translated{"", "com.orva.dt.Failure", true}));
  EXPECT_EQ(jvm.log.startingWith("GetStringUTFChars"),
            Lines{"GetStringUTFChars \"com.orva.dt.Failure\""});
}

TEST_F(ExceptionTranslation, GetMessageThatThrowsGivesTheEmptyMessage) {
  jvm->script(failure, "getMessage", fakejvm::throws("java/lang/Error", "inner"));
  EXPECT_EQ(translate(), (Translated{"", "com.orva.dt.Failure", true}));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(ExceptionTranslation, GetClassThatThrowsGivesTheEmptyClassName) {
  jvm->script(failure, "getClass", fakejvm::throws("java/lang/Error", "inner"));
  EXPECT_EQ(translate(), (Translated{"broken", "", true}));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(ExceptionTranslation, GetNameThatThrowsGivesTheEmptyClassName) {
  jvm->script(kClass, "getName", fakejvm::throws("java/lang/Error", "inner"));
  EXPECT_EQ(translate(), (Translated{"broken", "", true}));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(ExceptionTranslation, GetNameThatGivesNullGivesTheEmptyClassName) {
  jvm->script(kClass, "getName", fakejvm::returns(nullptr));
  EXPECT_EQ(translate(), (Translated{"broken", "", true}));
}

TEST_F(ExceptionTranslation, WithoutTheThrowableClassHasNeitherMessageNorClassName) {
  jvm->missingClass(kThrowable);
  EXPECT_EQ(translate(), (Translated{"", "", true}));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(ExceptionTranslation, WithoutTheClassClassHasNoClassName) {
  jvm->missingClass(kClass);
  EXPECT_EQ(translate(), (Translated{"broken", "", true}));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(ExceptionTranslation, WithoutGetMessageHasNoMessage) {
  jvm->missingMember(kThrowable, "getMessage", "()Ljava/lang/String;");
  EXPECT_EQ(translate(), (Translated{"", "com.orva.dt.Failure", true}));
}

// Every call of the translation failing in turn, in both ways in which it can.
class FailureInsideTheTranslation : public ExceptionTranslation {
 protected:
  static constexpr int kBefore = 4;  // up to the exception's ExceptionClear

  // After each fault: the exception arrives, nothing is pending, nothing leaks. Gives what arrived,
  // in the order of the calls.
  std::vector<Translated> failEach(const fakejvm::Fault& fault) {
    translate();
    const int calls = static_cast<int>(caughtAt);
    std::vector<Translated> arrived;
    for (int call = kBefore + 1; call <= calls; ++call) {
      const int before = jvm->faultsApplied();
      jvm->failCall(jvm->callCount() + call, fault);
      const Translated result = translate();
      if (jvm->faultsApplied() > before) arrived.push_back(result);
      EXPECT_EQ(jvm->pendingException(), nullptr) << "call " << call;
      EXPECT_EQ(jvm->outstandingUtf(), 0) << "call " << call;
      EXPECT_EQ(jvm->liveGlobalRefs("failure"), 0) << "call " << call;
    }
    return arrived;
  }

  const Translated noMessage{"", "com.orva.dt.Failure", true};
  const Translated noClassName{"broken", "", true};
  const Translated noObject{"broken", "com.orva.dt.Failure", false};
};

TEST_F(FailureInsideTheTranslation, NullResultsCostWhatTheyWouldHaveGiven) {
  EXPECT_EQ(failEach(fakejvm::Fault::nullResult()),
            (std::vector<Translated>{
                noMessage,    // FindClass Throwable
                noMessage,    // GetMethodID getMessage
                noMessage,    // getMessage()
                noMessage,    // GetStringUTFChars
                noClassName,  // FindClass Class
                noClassName,  // GetMethodID getName
                noClassName,  // FindClass Throwable
                noClassName,  // GetMethodID getClass
                noClassName,  // getClass()
                noClassName,  // getName()
                noClassName,  // GetStringUTFChars
                noObject,     // NewGlobalRef
            }));
}

TEST_F(FailureInsideTheTranslation, ExceptionsCostWhatTheCallsWouldHaveGiven) {
  EXPECT_EQ(failEach(fakejvm::Fault::exception("java/lang/Error", "inner")),
            (std::vector<Translated>{
                noMessage,    // FindClass Throwable
                noMessage,    // GetMethodID getMessage
                noMessage,    // getMessage()
                noMessage,    // GetStringUTFChars
                noClassName,  // FindClass Class
                noClassName,  // GetMethodID getName
                noClassName,  // FindClass Throwable
                noClassName,  // GetMethodID getClass
                noClassName,  // getClass()
                noClassName,  // getName()
                noClassName,  // GetStringUTFChars
            }));
}

}  // namespace
