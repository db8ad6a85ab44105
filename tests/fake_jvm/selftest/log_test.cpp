// SPDX-License-Identifier: MIT
// What the log says of each call.
#include <gtest/gtest.h>

#include <cmath>
#include <thread>

#include "tests/support/fake_jvm.h"

namespace kovtest {
namespace {

using fakejvm::nothing;
using fakejvm::returns;

constexpr const char* kThing = "pkg/Thing";

// An environment and an object "thing" whose members answer nothing.
struct Scene {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  fakejvm::ObjectRef thing = jvm.object("thing", kThing);
  jobject object = jvm.local("thing");
  jclass clazz = env->FindClass(kThing);

  jmethodID method(const char* name, const char* signature) {
    jvm->script(thing, name, nothing());
    const jmethodID id = env->GetMethodID(clazz, name, signature);
    jvm.log.clear();
    return id;
  }
};

TEST(FakeLog, NamesClassesAndMembersOfLookUps) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  jvm->setStaticField("pkg/Status", "NONE", jvm.object("none", "pkg/Status"));
  const jclass list = env->FindClass("java/util/List");
  env->GetMethodID(list, "get", "(I)Ljava/lang/Object;");
  env->GetStaticMethodID(env->FindClass("java/lang/System"), "gc", "()V");
  const jclass status = env->FindClass("pkg/Status");
  const jfieldID none = env->GetStaticFieldID(status, "NONE", "Lpkg/Status;");
  EXPECT_EQ(jvm->resolve(env->GetStaticObjectField(status, none)), jvm->find("none"));
  EXPECT_EQ(
      jvm.log,
      (Lines{"FindClass java/util/List", "GetMethodID java/util/List.get(I)Ljava/lang/Object;",
             "FindClass java/lang/System", "GetStaticMethodID java/lang/System.gc()V",
             "FindClass pkg/Status", "GetStaticFieldID pkg/Status.NONE Lpkg/Status;",
             "GetStaticObjectField pkg/Status.NONE"}));
}

TEST(FakeLog, DecodesArgumentsAfterTheSignature) {
  Scene s;
  const jmethodID id = s.method("all", "(ZIJDLjava/lang/String;[DLpkg/Thing;)V");
  const jstring text = s.env->NewStringUTF("say \"hi\"\n");
  const jdoubleArray array = s.env->NewDoubleArray(2);
  s.jvm.log.clear();
  s.env->CallVoidMethod(s.object, id, JNI_TRUE, -7, jlong{1} << 40, 250.5, text, array, s.object);
  s.env->ExceptionCheck();
  s.env->CallVoidMethod(s.object, id, JNI_FALSE, 0, jlong{-1}, 1.0, nullptr, nullptr, nullptr);
  s.env->ExceptionCheck();
  EXPECT_EQ(s.jvm.log,
            (Lines{"CallVoidMethodV thing.all(1,-7,1099511627776,250.5,\"say \\\"hi\\\"\\n\","
                   "double[]#1,thing)",
                   "ExceptionCheck", "CallVoidMethodV thing.all(0,0,-1,1,null,null,null)",
                   "ExceptionCheck"}));
}

TEST(FakeLog, CallsTheSlotAsItWasCalled) {
  Scene s;
  const jmethodID id = s.method("setLocked", "(Z)V");
  jvalue yes{};
  yes.z = JNI_TRUE;
  s.env->functions->CallVoidMethod(s.env, s.object, id, JNI_TRUE);
  s.env->ExceptionCheck();
  s.env->CallVoidMethodA(s.object, id, &yes);
  s.env->ExceptionCheck();
  EXPECT_EQ(s.jvm.log.startingWith("Call"),
            (Lines{"CallVoidMethod thing.setLocked(1)", "CallVoidMethodA thing.setLocked(1)"}));
}

TEST(FakeLog, AnswersInEveryResultKind) {
  Scene s;
  s.method("z", "()Z"), s.method("i", "()I"), s.method("j", "()J"), s.method("d", "()D");
  s.jvm->script(s.thing, "z", returns(true));
  s.jvm->script(s.thing, "i", returns(-5));
  s.jvm->script(s.thing, "j", returns(int64_t{1} << 33));
  s.jvm->script(s.thing, "d", returns(0.25));
  const auto id = [&](const char* name, const char* signature) {
    s.env->ExceptionCheck();
    return s.env->GetMethodID(s.clazz, name, signature);
  };
  EXPECT_EQ(s.env->CallBooleanMethod(s.object, id("z", "()Z")), JNI_TRUE);
  EXPECT_EQ(s.env->CallIntMethod(s.object, id("i", "()I")), -5);
  EXPECT_EQ(s.env->CallLongMethod(s.object, id("j", "()J")), jlong{1} << 33);
  EXPECT_EQ(s.env->CallDoubleMethod(s.object, id("d", "()D")), 0.25);
  s.env->ExceptionCheck();
}

TEST(FakeLog, StaticCallsAndObjectsMade) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  const jclass system = env->FindClass("java/lang/System");
  const jclass integer = env->FindClass("java/lang/Integer");
  const jmethodID gc = env->GetStaticMethodID(system, "gc", "()V");
  const jmethodID init = env->GetMethodID(integer, "<init>", "(I)V");
  const jmethodID intValue = env->GetMethodID(integer, "intValue", "()I");
  jvm.log.clear();
  env->CallStaticVoidMethod(system, gc);
  env->ExceptionCheck();
  const jobject box = env->NewObject(integer, init, 5);
  env->ExceptionCheck();
  EXPECT_EQ(env->CallIntMethod(box, intValue), 5);
  env->ExceptionCheck();
  EXPECT_EQ(jvm.log, (Lines{"CallStaticVoidMethodV java/lang/System.gc()", "ExceptionCheck",
                            "NewObjectV java/lang/Integer.<init>(5)", "ExceptionCheck",
                            "CallIntMethodV Integer#1.intValue()", "ExceptionCheck"}));
}

TEST(FakeLog, StringsAndArrays) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  const jstring text = env->NewStringUTF("text");
  const char* bytes = env->GetStringUTFChars(text, nullptr);
  EXPECT_STREQ(bytes, "text");
  EXPECT_EQ(jvm->outstandingUtf(), 1);
  env->ReleaseStringUTFChars(text, bytes);
  EXPECT_EQ(env->GetStringUTFLength(text), 4);
  const jdoubleArray array = env->NewDoubleArray(3);
  const double values[] = {1.0, 0.5, -1e300};
  env->SetDoubleArrayRegion(array, 0, 3, values);
  double back[2] = {};
  env->GetDoubleArrayRegion(array, 1, 2, back);
  EXPECT_EQ(back[0], 0.5);
  EXPECT_EQ(back[1], -1e300);
  EXPECT_EQ(env->GetArrayLength(array), 3);
  EXPECT_EQ(jvm.log, (Lines{"NewStringUTF \"text\"", "GetStringUTFChars \"text\"",
                            "ReleaseStringUTFChars \"text\"", "GetStringUTFLength \"text\"",
                            "NewDoubleArray 3", "SetDoubleArrayRegion 0 3 [1,0.5,-1e+300]",
                            "GetDoubleArrayRegion double[]#1 1 2", "GetArrayLength double[]#1"}));
}

TEST(FakeLog, CutsLongTexts) {
  FakeJvm jvm;
  jvm.env()->NewStringUTF(std::string(1 << 20, 'a').c_str());
  EXPECT_EQ(jvm.log, (Lines{"NewStringUTF \"" + std::string(60, 'a') + "...\"(1048576 bytes)"}));
}

TEST(FakeLog, ReferencesFramesAndExceptions) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  jvm.object("monitor", kThing);
  const jobject global = env->NewGlobalRef(jvm.local("monitor"));
  EXPECT_TRUE(env->IsSameObject(global, jvm.local("monitor")));
  EXPECT_EQ(jvm->liveGlobalRefs("monitor"), 1);
  env->PushLocalFrame(16);
  env->PopLocalFrame(nullptr);
  env->DeleteGlobalRef(global);
  env->ThrowNew(env->FindClass("java/lang/Error"), "text");
  const jthrowable error = env->ExceptionOccurred();
  env->ExceptionClear();
  env->Throw(error);
  env->ExceptionClear();
  EXPECT_EQ(jvm.log,
            (Lines{"NewGlobalRef monitor", "IsSameObject monitor monitor", "PushLocalFrame 16",
                   "PopLocalFrame", "DeleteGlobalRef monitor", "FindClass java/lang/Error",
                   "ThrowNew java/lang/Error \"text\"", "ExceptionOccurred", "ExceptionClear",
                   "Throw Error#1", "ExceptionClear"}));
}

TEST(FakeLog, KeepsThreadsApart) {
  FakeJvm jvm;
  jvm.env()->FindClass("pkg/Mine");
  std::thread([&] {
    jvm.env()->FindClass("pkg/Other");
    EXPECT_EQ(jvm.log, (Lines{"FindClass pkg/Other"}));
    jvm->detachThread();
  }).join();
  EXPECT_EQ(jvm.log, (Lines{"FindClass pkg/Mine"}));
  const auto all = jvm->logOfAllThreads();
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[1].text, "FindClass pkg/Other");
  EXPECT_NE(all[0].thread, all[1].thread);
}

TEST(FakeLog, FindsItsLines) {
  FakeJvm jvm;
  jvm.env()->FindClass("pkg/A");
  jvm.env()->FindClass("pkg/B");
  EXPECT_EQ(jvm.log.indexOf("FindClass pkg/B"), 1);
  EXPECT_EQ(jvm.log.indexOf("FindClass pkg/C"), -1);
  EXPECT_TRUE(jvm.log.contains("FindClass pkg/A"));
  jvm.log.clear();
  EXPECT_EQ(jvm.log, Lines());
}

}  // namespace
}  // namespace kovtest
