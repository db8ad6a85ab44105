// SPDX-License-Identifier: MIT
// Each misuse that a real runtime punishes is noticed, and nothing else.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "tests/support/fake_jvm.h"

namespace kovtest {
namespace {

using fakejvm::returns;

// An object "osd" with isLocked()Z, and its identifier.
struct Scene {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  fakejvm::ObjectRef osd = jvm.object("osd", "pkg/Osd");
  jobject object = jvm.local("osd");
  jclass clazz = env->FindClass("pkg/Osd");
  jmethodID isLocked = env->GetMethodID(clazz, "isLocked", "()Z");

  Scene() { jvm->script(osd, "isLocked", returns(true)); }
  jboolean call(jobject on, jmethodID id) {
    const jboolean answer = env->CallBooleanMethod(on, id);
    env->ExceptionCheck();
    return answer;
  }
};

TEST(FakeReferee, HasNothingToSayOfALegalCall) {
  Scene s;
  EXPECT_EQ(s.call(s.object, s.isLocked), JNI_TRUE);
  EXPECT_EQ(s.jvm->problems(), Lines());
  EXPECT_EQ(s.jvm->xcheckWarnings(), Lines());
}

TEST(FakeReferee, UnscriptedMember) {
  Scene s;
  const jmethodID id = s.env->GetMethodID(s.clazz, "isLockSupported", "()Z");
  EXPECT_EQ(s.call(s.object, id), JNI_FALSE);
  EXPECT_EQ(s.jvm.takeProblems(), (Lines{"unscripted call: osd.isLockSupported()"}));
}

TEST(FakeReferee, UnscriptedConstructorAndField) {
  Scene s;
  const jmethodID init = s.env->GetMethodID(s.clazz, "<init>", "(I)V");
  EXPECT_EQ(s.env->NewObject(s.clazz, init, 3), nullptr);
  s.env->ExceptionCheck();
  const jfieldID field = s.env->GetStaticFieldID(s.clazz, "NONE", "Lpkg/Osd;");
  EXPECT_EQ(s.env->GetStaticObjectField(s.clazz, field), nullptr);
  EXPECT_EQ(s.jvm.takeProblems(), (Lines{"unscripted call: pkg/Osd.<init>(3)",
                                         "unscripted field: pkg/Osd.NONE Lpkg/Osd;"}));
}

TEST(FakeReferee, UnscriptedSlot) {
  Scene s;
  EXPECT_EQ(s.env->CallFloatMethod(s.object, s.isLocked), 0.0f);
  EXPECT_EQ(s.env->GetFieldID(s.clazz, "x", "I"), nullptr);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"unscripted slot: CallFloatMethodV", "unscripted slot: GetFieldID"}));
}

TEST(FakeReferee, NoSlotIsEmpty) {
  FakeJvm jvm;
  const auto* entries = reinterpret_cast<void* const*>(jvm.env()->functions);
  for (std::size_t i = 4; i < sizeof(JNINativeInterface_) / sizeof(void*); ++i) {
    EXPECT_NE(entries[i], nullptr) << "slot " << i;
  }
}

TEST(FakeReferee, NullClassInALookUp) {
  Scene s;
  EXPECT_EQ(s.env->GetMethodID(nullptr, "x", "()V"), nullptr);
  EXPECT_EQ(s.env->GetStaticFieldID(nullptr, "x", "I"), nullptr);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"GetMethodID: null class", "GetStaticFieldID: null class"}));
}

TEST(FakeReferee, NullIdentifierAndNullObject) {
  Scene s;
  EXPECT_EQ(s.call(s.object, nullptr), JNI_FALSE);
  EXPECT_EQ(s.call(nullptr, s.isLocked), JNI_FALSE);
  ASSERT_TRUE(s.jvm->pendingException());
  EXPECT_EQ(s.jvm->pendingException()->className, "java/lang/NullPointerException");
  s.jvm->clearPendingException();
  EXPECT_EQ(s.jvm.takeProblems(), (Lines{"CallBooleanMethodV: null identifier",
                                         "CallBooleanMethodV: null object: pkg/Osd.isLocked()Z"}));
}

TEST(FakeReferee, IdentifierOfAnotherKind) {
  Scene s;
  const jmethodID gc = s.env->GetStaticMethodID(s.clazz, "gc", "()V");
  s.env->CallVoidMethod(s.object, gc);
  s.env->ExceptionCheck();
  int rubbish = 0;
  s.call(s.object, reinterpret_cast<jmethodID>(&rubbish));
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"CallVoidMethodV: identifier of another kind: pkg/Osd.gc()V",
                   "CallBooleanMethodV: not an identifier"}));
}

TEST(FakeReferee, WrongResultKind) {
  Scene s;
  EXPECT_EQ(s.env->CallIntMethod(s.object, s.isLocked), 0);
  s.env->ExceptionCheck();
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"CallIntMethodV: wrong result kind: pkg/Osd.isLocked()Z"}));
}

TEST(FakeReferee, ObjectOfAnUnrelatedClass) {
  Scene s;
  s.jvm.object("lut", "pkg/Lut");
  EXPECT_EQ(s.call(s.jvm.local("lut"), s.isLocked), JNI_FALSE);
  s.jvm->extends("pkg/SpecialOsd", "pkg/Osd");
  s.jvm->script("pkg/SpecialOsd", "isLocked", returns(true));
  s.jvm.object("special", "pkg/SpecialOsd");
  EXPECT_EQ(s.call(s.jvm.local("special"), s.isLocked), JNI_TRUE);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"CallBooleanMethodV: lut of class pkg/Lut has no pkg/Osd.isLocked()Z"}));
}

TEST(FakeReferee, StringMisuse) {
  Scene s;
  const char other[] = "x";
  EXPECT_EQ(s.env->GetStringUTFChars(nullptr, nullptr), nullptr);
  EXPECT_EQ(s.env->GetStringUTFChars(static_cast<jstring>(s.object), nullptr), nullptr);
  const jstring text = s.env->NewStringUTF("a");
  s.env->ReleaseStringUTFChars(text, other);
  const char* bytes = s.env->GetStringUTFChars(text, nullptr);
  s.env->ReleaseStringUTFChars(s.env->NewStringUTF("b"), bytes);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"GetStringUTFChars: null string", "GetStringUTFChars: osd is no string",
                   "ReleaseStringUTFChars: these characters are not taken",
                   "ReleaseStringUTFChars: characters of \"a\" released for \"b\""}));
}

TEST(FakeReferee, GlobalReferences) {
  Scene s;
  const jobject global = s.env->NewGlobalRef(s.object);
  s.env->DeleteGlobalRef(global);
  s.env->DeleteGlobalRef(global);
  s.call(global, s.isLocked);
  s.jvm->clearPendingException();
  s.env->DeleteGlobalRef(s.object);
  s.env->DeleteGlobalRef(nullptr);
  const Lines problems = s.jvm.takeProblems();
  ASSERT_EQ(problems.size(), 4u);
  EXPECT_EQ(problems[0], "DeleteGlobalRef: dead reference: osd (deleted global reference)");
  EXPECT_EQ(problems[1], "CallBooleanMethodV: dead reference: osd (deleted global reference)");
  EXPECT_EQ(problems[2], "CallBooleanMethodV: null object: pkg/Osd.isLocked()Z");
  EXPECT_EQ(problems[3], "DeleteGlobalRef: local reference: osd");
}

TEST(FakeReferee, LocalReferencesAreNotDeleted) {
  Scene s;
  s.env->DeleteLocalRef(s.object);
  s.env->NewGlobalRef(s.object);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"DeleteLocalRef: local references are left to the virtual machine, but deleted: "
                   "osd",
                   "NewGlobalRef: dead reference: osd (deleted local reference)"}));
}

TEST(FakeReferee, PoppedLocalReference) {
  Scene s;
  s.env->PushLocalFrame(4);
  const jobject inner = s.env->NewLocalRef(s.object);
  const jobject kept = s.env->PopLocalFrame(s.env->NewLocalRef(s.object));
  EXPECT_TRUE(s.env->IsSameObject(kept, s.object));
  EXPECT_EQ(s.jvm->problems(), Lines());
  s.env->IsSameObject(inner, s.object);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"IsSameObject: dead reference: osd (its frame was popped)"}));
}

TEST(FakeReferee, PopWithoutPush) {
  Scene s;
  s.env->PopLocalFrame(nullptr);
  EXPECT_EQ(s.jvm.takeProblems(), (Lines{"PopLocalFrame: no frame was pushed"}));
}

TEST(FakeReferee, AnotherThreadsLocalReference) {
  Scene s;
  std::thread([&] {
    JNIEnv* own = s.jvm.env();
    own->NewLocalRef(s.object);
    s.jvm->detachThread();
  }).join();
  const Lines problems = s.jvm.takeProblems();
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_NE(problems[0].find("NewLocalRef: local reference of thread "), std::string::npos);
}

TEST(FakeReferee, AnotherThreadsEnvironment) {
  Scene s;
  std::thread([&] { s.env->ExceptionCheck(); }).join();
  const Lines problems = s.jvm.takeProblems();
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_NE(problems[0].find("ExceptionCheck: called on thread "), std::string::npos);
}

TEST(FakeReferee, DetachedThreadsEnvironment) {
  Scene s;
  JNIEnv* dead = nullptr;
  jobject local = nullptr;
  std::thread([&] {
    dead = s.jvm.env();
    local = s.jvm.local("osd");
    s.jvm->detachThread();
  }).join();
  dead->ExceptionCheck();
  s.env->NewGlobalRef(local);
  EXPECT_EQ(s.jvm.takeProblems(),
            (Lines{"ExceptionCheck: called through the environment of a detached thread",
                   "NewGlobalRef: dead reference: osd (its thread has detached)"}));
}

TEST(FakeReferee, ThrowingWhatIsNoThrowable) {
  Scene s;
  EXPECT_EQ(s.env->Throw(static_cast<jthrowable>(s.object)), JNI_ERR);
  EXPECT_EQ(s.env->Throw(nullptr), JNI_ERR);
  EXPECT_EQ(s.jvm.takeProblems(), (Lines{"Throw: osd is no throwable", "Throw: null throwable"}));
}

TEST(FakeXcheck, CallWithAnExceptionPending) {
  Scene s;
  s.jvm.throwPending("stale");
  s.env->FindClass("pkg/Osd");
  s.env->PushLocalFrame(1);
  s.env->PopLocalFrame(nullptr);
  s.env->IsSameObject(s.object, s.object);
  s.env->ExceptionClear();
  s.env->FindClass("pkg/Osd");
  EXPECT_EQ(s.jvm->xcheckWarnings(),
            (Lines{"JNI call made with exception pending: FindClass pkg/Osd"}));
}

TEST(FakeXcheck, CallWithoutAnExceptionCheck) {
  Scene s;
  s.env->CallBooleanMethod(s.object, s.isLocked);
  s.env->PushLocalFrame(1);
  s.env->PopLocalFrame(nullptr);
  s.env->NewLocalRef(s.object);
  s.env->NewLocalRef(s.object);
  EXPECT_EQ(s.jvm->xcheckWarnings(),
            (Lines{"no exception check after CallBooleanMethodV osd.isLocked() before NewLocalRef "
                   "osd"}));
  s.jvm.allowXcheckWarnings();
}

TEST(FakeXcheck, MoreLocalReferencesThanAnnounced) {
  Scene s;
  s.env->PushLocalFrame(4);
  for (int i = 0; i < 4 + 32; ++i) s.env->NewLocalRef(s.object);
  EXPECT_EQ(s.jvm->xcheckWarnings(), Lines());
  for (int i = 0; i < 40; ++i) s.env->NewLocalRef(s.object);
  s.env->PopLocalFrame(nullptr);
  EXPECT_EQ(s.jvm->xcheckWarnings(), (Lines{"JNI local refs: 37, exceeds capacity: 4"}));
  s.jvm.allowXcheckWarnings();
}

// --- the fixture's own verdict at the end of a test ---

TEST(FakeVerdict, FailsOnProblems) {
  EXPECT_NONFATAL_FAILURE({ FakeJvm().env()->PopLocalFrame(nullptr); }, "no frame was pushed");
}

TEST(FakeVerdict, FailsOnXcheckWarnings) {
  EXPECT_NONFATAL_FAILURE(
      {
        Scene s;
        s.env->CallBooleanMethod(s.object, s.isLocked);
        s.env->FindClass("pkg/Osd");
      },
      "-Xcheck:jni would warn");
}

TEST(FakeVerdict, FailsOnGlobalReferencesLeft) {
  jobject left = nullptr;
  EXPECT_NONFATAL_FAILURE(
      {
        Scene s;
        left = s.env->NewGlobalRef(s.object);
      },
      "1 global references left, not 0:\n  osd");
  FakeJvm jvm;
  jvm.env()->DeleteGlobalRef(left);
}

TEST(FakeVerdict, FailsOnCharactersLeft) {
  EXPECT_NONFATAL_FAILURE(
      {
        FakeJvm jvm;
        jvm.env()->GetStringUTFChars(jvm.env()->NewStringUTF("a"), nullptr);
      },
      "UTF characters not released");
}

TEST(FakeVerdict, FailsOnFramesLeft) {
  EXPECT_NONFATAL_FAILURE({ FakeJvm().env()->PushLocalFrame(1); }, "local frames not popped");
}

TEST(FakeVerdict, FailsOnAPendingException) {
  EXPECT_NONFATAL_FAILURE(
      {
        FakeJvm jvm;
        jvm.env();
        jvm.throwPending("left over");
      },
      "exception left pending: java/lang/IllegalStateException \"left over\"");
}

}  // namespace
}  // namespace kovtest
