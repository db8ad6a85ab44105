// SPDX-License-Identifier: MIT
// Every call that can fail fails when it is told to, as HotSpot would.
#include <gtest/gtest.h>

#include "tests/support/fake_jvm.h"

namespace kovtest {
namespace {

using fakejvm::Fault;
using fakejvm::returns;

class FakeFault : public testing::Test {
 protected:
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  fakejvm::ObjectRef thing = jvm.object("thing", "pkg/Thing");
  jobject object = jvm.local("thing");
  jclass clazz = env->FindClass("pkg/Thing");

  void failNext(Fault fault = Fault::nullResult()) {
    jvm->failCall(jvm->callCount() + 1, std::move(fault));
  }
  // Takes the pending exception: "class: message", "class" without a message, "" without one.
  std::string taken() {
    const fakejvm::ObjectRef pending = jvm->pendingException();
    jvm->clearPendingException();
    if (!pending) return "";
    const fakejvm::Value message = pending->field("message");
    return pending->className + (message.isNull() ? "" : ": " + message.asText());
  }
};

TEST_F(FakeFault, CallsAreNumberedFromOne) {
  const int before = jvm->callCount();
  EXPECT_EQ(before, 1);
  env->ExceptionCheck();
  EXPECT_EQ(jvm->callCount(), 2);
}

TEST_F(FakeFault, LookUpsAnswerNullAndLeaveTheirError) {
  failNext();
  EXPECT_EQ(env->FindClass("pkg/Other"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoClassDefFoundError: pkg/Other");
  failNext();
  EXPECT_EQ(env->GetMethodID(clazz, "run", "()V"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoSuchMethodError: run");
  failNext();
  EXPECT_EQ(env->GetStaticMethodID(clazz, "run", "()V"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoSuchMethodError: run");
  failNext();
  EXPECT_EQ(env->GetStaticFieldID(clazz, "ONE", "I"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoSuchFieldError: ONE");
  EXPECT_EQ(jvm->faultsApplied(), 4);
}

TEST_F(FakeFault, MissingMembersFailInTheSameWay) {
  jvm->missingClass("pkg/Gone");
  jvm->missingMember("pkg/Thing", "run", "()V");
  jvm->missingMember("pkg/Thing", "ONE", "I");
  EXPECT_EQ(env->FindClass("pkg/Gone"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoClassDefFoundError: pkg/Gone");
  EXPECT_EQ(env->GetMethodID(clazz, "run", "()V"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoSuchMethodError: run");
  EXPECT_EQ(env->GetStaticFieldID(clazz, "ONE", "I"), nullptr);
  EXPECT_EQ(taken(), "java/lang/NoSuchFieldError: ONE");
  EXPECT_NE(env->GetMethodID(clazz, "run", "(I)V"), nullptr);
  EXPECT_EQ(taken(), "");
}

TEST_F(FakeFault, WhatNeedsMemoryRunsOutOfIt) {
  const std::string noMemory = "java/lang/OutOfMemoryError: Java heap space";
  const jstring text = env->NewStringUTF("text");
  const jclass list = env->FindClass("java/util/ArrayList");
  const jmethodID init = env->GetMethodID(list, "<init>", "()V");
  failNext();
  EXPECT_EQ(env->NewStringUTF("text"), nullptr);
  EXPECT_EQ(taken(), noMemory);
  failNext();
  EXPECT_EQ(env->GetStringUTFChars(text, nullptr), nullptr);
  EXPECT_EQ(taken(), noMemory);
  failNext();
  EXPECT_EQ(env->NewDoubleArray(3), nullptr);
  EXPECT_EQ(taken(), noMemory);
  failNext();
  EXPECT_EQ(env->NewObject(list, init), nullptr);
  EXPECT_EQ(taken(), noMemory);
  failNext();
  EXPECT_EQ(env->PushLocalFrame(16), JNI_ENOMEM);
  EXPECT_EQ(taken().substr(0, 26), "java/lang/OutOfMemoryError");
  failNext();
  EXPECT_EQ(env->NewGlobalRef(object), nullptr);
  EXPECT_EQ(taken(), "");
}

TEST_F(FakeFault, RegisterNativesIsRefused) {
  char name[] = "run", signature[] = "()V";
  const JNINativeMethod method{name, signature, reinterpret_cast<void*>(+[] {})};
  failNext();
  EXPECT_LT(env->RegisterNatives(clazz, &method, 1), 0);
  EXPECT_EQ(taken(), "java/lang/NoSuchMethodError: Method pkg.Thing.run()V not found");
  EXPECT_FALSE(jvm->hasNative("run"));
}

TEST_F(FakeFault, JavaCallsAnswerNullOrThrow) {
  jvm->script(thing, "next", returns(thing));
  const jmethodID next = env->GetMethodID(clazz, "next", "()Lpkg/Thing;");
  failNext();
  EXPECT_EQ(env->CallObjectMethod(object, next), nullptr);
  env->ExceptionCheck();
  EXPECT_EQ(taken(), "");
  failNext(Fault::exception("java/io/IOException", "Error sending data"));
  EXPECT_EQ(env->CallObjectMethod(object, next), nullptr);
  EXPECT_EQ(taken(), "java/io/IOException: Error sending data");
  failNext(Fault::exception("java/io/IOException"));
  EXPECT_EQ(env->CallObjectMethod(object, next), nullptr);
  EXPECT_EQ(taken(), "java/io/IOException");
  const std::string mebibyte(1 << 20, 'm');
  failNext(Fault::exception("java/io/IOException", mebibyte));
  EXPECT_EQ(env->CallObjectMethod(object, next), nullptr);
  EXPECT_EQ(taken(), "java/io/IOException: " + mebibyte);
}

TEST_F(FakeFault, AFaultThatTheCallCannotHaveDoesNothing) {
  failNext(Fault::exception("java/io/IOException", "x"));
  const jobject global = env->NewGlobalRef(object);
  EXPECT_NE(global, nullptr);
  failNext();
  env->DeleteGlobalRef(global);
  failNext();
  EXPECT_EQ(env->ExceptionOccurred(), nullptr);
  EXPECT_EQ(jvm->faultsApplied(), 0);
  EXPECT_EQ(taken(), "");
}

TEST_F(FakeFault, AVoidCallCannotAnswerNull) {
  bool ran = false;
  jvm->script(thing, "run", [&](fakejvm::Call&) { return ran = true, fakejvm::Value(); });
  const jmethodID run = env->GetMethodID(clazz, "run", "()V");
  failNext();
  env->CallVoidMethod(object, run);
  env->ExceptionCheck();
  EXPECT_TRUE(ran);
  EXPECT_EQ(jvm->faultsApplied(), 0);
}

TEST_F(FakeFault, TheHookSeesEachCallBeforeItHappens) {
  Lines seen;
  jvm->onCall([&](const std::string& line) { seen.push_back(line); });
  env->ExceptionCheck();
  env->FindClass("pkg/A");
  jvm->onCall(nullptr);
  env->ExceptionCheck();
  EXPECT_EQ(seen, (Lines{"ExceptionCheck", "FindClass pkg/A"}));
}

TEST_F(FakeFault, ResetForgetsFaults) {
  failNext();
  jvm->failCall(1, Fault::nullResult());
  jvm->reset();
  EXPECT_NE(env->FindClass("pkg/A"), nullptr);
  EXPECT_FALSE(jvm->disturbed());
}

}  // namespace
}  // namespace kovtest
