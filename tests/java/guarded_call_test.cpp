// SPDX-License-Identifier: MIT
// The three steps of a guarded call, for every kind of result.
#include <gtest/gtest.h>

#include "java/conversion.h"
#include "java/java_classes.h"
#include "lumora/kov/java/java_exception.h"
#include "tests/support/fake_jvm.h"

namespace {

namespace jni = lumora::kov::java::jni;
using kovtest::FakeJvm;
using kovtest::Lines;
using lumora::kov::java::Env;
using lumora::kov::java::JavaException;
using lumora::kov::java::Member;
using lumora::kov::java::method;
using lumora::kov::java::staticMethod;

constexpr const char* kThing = "test/Thing";

class GuardedCall : public testing::Test {
 protected:
  GuardedCall() {
    env = Env()->env();
    thing = jvm->local(jvm.object("thing", kThing));
    clazz = env->FindClass(kThing);
  }

  // The target of a call of `member`, scripted to give `answer`.
  jni::Target target(const Member& member, fakejvm::Value answer) {
    jvm->script(kThing, member.name, fakejvm::returns(std::move(answer)));
    return targetOf(member);
  }
  jni::Target targetOf(const Member& member) {
    const bool onClass =
        member.kind == Member::Kind::kStatic || std::string(member.name) == "<init>";
    const jmethodID id = jni::methodId(env, clazz, member);
    jvm.log.clear();
    return {onClass ? clazz : thing, id, kThing, member};
  }
  static Lines steps(const std::string& call) {
    return {"ExceptionClear", call, "ExceptionOccurred"};
  }

  FakeJvm jvm;
  JNIEnv* env;
  jobject thing;
  jclass clazz;
};

constexpr Member kVoid = method("act", "(I)V");
constexpr Member kObject = method("part", "()Ltest/Thing;");
constexpr Member kBoolean = method("is", "()Z");
constexpr Member kInt = method("count", "()I");
constexpr Member kLong = method("stamp", "()J");
constexpr Member kDouble = method("level", "()D");
constexpr Member kStaticVoid = staticMethod("reset", "()V");
constexpr Member kStaticObject = staticMethod("the", "()Ltest/Thing;");
constexpr Member kConstructor = lumora::kov::java::constructor("(D)V");

TEST_F(GuardedCall, VoidClearsCallsAndLooks) {
  jni::callVoid(env, target(kVoid, {}), jint{5});
  EXPECT_EQ(jvm.log, steps("CallVoidMethodV thing.act(5)"));
}

TEST_F(GuardedCall, ObjectGivesALocalReference) {
  const jobject part = jni::callObject(env, target(kObject, jvm.object("part", kThing)));
  EXPECT_EQ(jvm.log, steps("CallObjectMethodV thing.part()"));
  EXPECT_EQ(jvm->resolve(part), jvm.object("part", kThing));
}

TEST_F(GuardedCall, ObjectMayBeNull) {
  EXPECT_EQ(jni::callObject(env, target(kObject, nullptr)), nullptr);
}

TEST_F(GuardedCall, BooleanGivesTrueAndFalse) {
  EXPECT_TRUE(jni::callBoolean(env, target(kBoolean, true)));
  EXPECT_EQ(jvm.log, steps("CallBooleanMethodV thing.is()"));
  EXPECT_FALSE(jni::callBoolean(env, target(kBoolean, false)));
}

// Kept: true exactly when the Java result is 1. A real boolean is 0 or 1, so a runtime that answers
// 2 is put in the fake one's place.
TEST_F(GuardedCall, BooleanIsTrueExactlyForOne) {
  const jni::Target at = target(kBoolean, true);
  const JNINativeInterface_* const real = env->functions;
  JNINativeInterface_ altered = *real;
  altered.CallBooleanMethodV = [](JNIEnv*, jobject, jmethodID, va_list) -> jboolean { return 2; };
  env->functions = &altered;
  const bool two = jni::callBoolean(env, at);
  env->functions = real;
  EXPECT_FALSE(two);
}

TEST_F(GuardedCall, IntGivesThirtyTwoSignedBits) {
  EXPECT_EQ(jni::callInt(env, target(kInt, INT32_MIN)), INT32_MIN);
  EXPECT_EQ(jvm.log, steps("CallIntMethodV thing.count()"));
}

TEST_F(GuardedCall, LongGivesSixtyFourSignedBits) {
  EXPECT_EQ(jni::callLong(env, target(kLong, INT64_MIN)), INT64_MIN);
  EXPECT_EQ(jvm.log, steps("CallLongMethodV thing.stamp()"));
}

TEST_F(GuardedCall, DoubleGivesTheSameBits) {
  EXPECT_EQ(jni::callDouble(env, target(kDouble, 0.1)), 0.1);
  EXPECT_EQ(jvm.log, steps("CallDoubleMethodV thing.level()"));
}

TEST_F(GuardedCall, StaticVoid) {
  jni::callStaticVoid(env, target(kStaticVoid, {}));
  EXPECT_EQ(jvm.log, steps("CallStaticVoidMethodV test/Thing.reset()"));
}

TEST_F(GuardedCall, StaticObject) {
  jni::callStaticObject(env, target(kStaticObject, nullptr));
  EXPECT_EQ(jvm.log, steps("CallStaticObjectMethodV test/Thing.the()"));
}

TEST_F(GuardedCall, Constructor) {
  const jobject made = jni::newObject(env, target(kConstructor, {}), jdouble{0.5});
  EXPECT_EQ(jvm.log, steps("NewObjectV test/Thing.<init>(0.5)"));
  EXPECT_EQ(jvm->resolve(made)->className, kThing);
}

TEST_F(GuardedCall, GenericFormGuardsAnyFunction) {
  jvm.log.clear();
  EXPECT_EQ(jni::guarded(env, [&] { return 42; }), 42);
  jni::guarded(env, [&] { jni::isSameObject(env, thing, thing); });
  EXPECT_EQ(jvm.log, (Lines{"ExceptionClear", "ExceptionOccurred", "ExceptionClear",
                            "IsSameObject thing thing", "ExceptionOccurred"}));
}

TEST_F(GuardedCall, DiscardsAnUnrelatedPendingException) {
  const jni::Target at = target(kInt, 7);
  jvm.throwPending("stale");
  EXPECT_EQ(jni::callInt(env, at), 7);
  EXPECT_EQ(jvm.log, steps("CallIntMethodV thing.count()"));
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

// Otherwise a stale exception would pass for the constructor's own.
TEST_F(GuardedCall, ConstructorDiscardsAnUnrelatedPendingException) {
  const jni::Target at = target(kConstructor, {});
  jvm.throwPending("stale");
  EXPECT_NE(jni::newObject(env, at, jdouble{0.5}), nullptr);
}

// One per kind: what the member throws arrives, and nothing stays pending.
class GuardedCallFailure : public GuardedCall {
 protected:
  jni::Target failing(const Member& member) {
    jvm->script(kThing, member.name, fakejvm::throws("test/Failure", member.name));
    return targetOf(member);
  }
  template <class Call>
  void expectFailure(const char* message, Call call) {
    try {
      call();
      FAIL() << "no exception";
    } catch (const JavaException& e) {
      EXPECT_STREQ(e.what(), message);
      EXPECT_EQ(e.getClassName(), "test.Failure");
    }
    EXPECT_EQ(jvm->pendingException(), nullptr);
  }
};

TEST_F(GuardedCallFailure, Void) {
  expectFailure("act", [&] { jni::callVoid(env, failing(kVoid), jint{5}); });
}
TEST_F(GuardedCallFailure, Object) {
  expectFailure("part", [&] { jni::callObject(env, failing(kObject)); });
}
TEST_F(GuardedCallFailure, Boolean) {
  expectFailure("is", [&] { jni::callBoolean(env, failing(kBoolean)); });
}
TEST_F(GuardedCallFailure, Int) {
  expectFailure("count", [&] { jni::callInt(env, failing(kInt)); });
}
TEST_F(GuardedCallFailure, Long) {
  expectFailure("stamp", [&] { jni::callLong(env, failing(kLong)); });
}
TEST_F(GuardedCallFailure, Double) {
  expectFailure("level", [&] { jni::callDouble(env, failing(kDouble)); });
}
TEST_F(GuardedCallFailure, StaticVoid) {
  expectFailure("reset", [&] { jni::callStaticVoid(env, failing(kStaticVoid)); });
}
TEST_F(GuardedCallFailure, StaticObject) {
  expectFailure("the", [&] { jni::callStaticObject(env, failing(kStaticObject)); });
}
TEST_F(GuardedCallFailure, ConstructorsExceptionIsAJavaException) {
  expectFailure("<init>", [&] { jni::newObject(env, failing(kConstructor), jdouble{0.5}); });
}

// A null identifier or object would end the process.
class GuardedCallOfNothing : public GuardedCall {
 protected:
  template <class Call>
  void expectThrown(const char* className, const char* message, Call call) {
    jvm.throwPending("stale");
    jvm.log.clear();
    try {
      call();
      FAIL() << "no exception";
    } catch (const JavaException& e) {
      EXPECT_EQ(e.getClassName(), className);
      EXPECT_STREQ(e.what(), message);
      EXPECT_EQ(e.getThrowable(), nullptr);
    }
    EXPECT_EQ(jvm.log, Lines{"ExceptionClear"}) << "Java is not called";
  }
};

TEST_F(GuardedCallOfNothing, MissingMemberNamesClassMemberAndSignature) {
  expectThrown("java.lang.NoSuchMethodError", "test/Thing.act(I)V", [&] {
    jni::callVoid(env, {thing, nullptr, kThing, kVoid}, jint{5});
  });
}

TEST_F(GuardedCallOfNothing, NullObjectNamesWhatWasCalled) {
  const jmethodID id = targetOf(kInt).id;
  expectThrown("java.lang.NullPointerException", "test/Thing.count()I called on null", [&] {
    jni::callInt(env, {nullptr, id, kThing, kInt});
  });
}

TEST_F(GuardedCallOfNothing, MissingMemberOfANullObjectIsAMissingMember) {
  expectThrown("java.lang.NoSuchMethodError", "test/Thing.level()D", [&] {
    jni::callDouble(env, {nullptr, nullptr, kThing, kDouble});
  });
}

TEST_F(GuardedCallOfNothing, MissingConstructor) {
  expectThrown("java.lang.NoSuchMethodError", "test/Thing.<init>(D)V", [&] {
    jni::newObject(env, {clazz, nullptr, kThing, kConstructor}, jdouble{0.5});
  });
}

TEST_F(GuardedCallOfNothing, MissingStaticMember) {
  expectThrown("java.lang.NoSuchMethodError", "test/Thing.reset()V", [&] {
    jni::callStaticVoid(env, {clazz, nullptr, kThing, kStaticVoid});
  });
}

}  // namespace
