// SPDX-License-Identifier: MIT
// The virtual machine: creation, threads, frames, exceptions from scripts, native methods.
#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "tests/support/fake_jvm.h"
#include "tests/support/plugin_folder.h"

namespace kovtest {
namespace {

using fakejvm::Call;
using fakejvm::JavaThrow;
using fakejvm::makeList;
using fakejvm::throws;
using fakejvm::Value;

template <typename Function>
Function* exported(const FakeJvm& jvm, const char* name) {
  return reinterpret_cast<Function*>(system::load(jvm.libraryFile(), name));
}
auto* createVm(const FakeJvm& jvm) {
  return exported<jint(JavaVM**, void**, void*)>(jvm, "JNI_CreateJavaVM");
}
auto* createdVms(const FakeJvm& jvm) {
  return exported<jint(JavaVM**, jsize, jsize*)>(jvm, "JNI_GetCreatedJavaVMs");
}

struct Arguments {
  char option[16] = "-Dx=y";
  JavaVMOption options[1] = {{option, nullptr}};
  JavaVMInitArgs init{JNI_VERSION_1_8, 1, options, JNI_TRUE};
};

TEST(FakeMachine, IsCreatedOnce) {
  FakeJvm jvm;
  jvm->forgetVm();
  Arguments arguments;
  JavaVM* vm = nullptr;
  JNIEnv* env = nullptr;
  jsize count = 7;
  EXPECT_EQ(createdVms(jvm)(&vm, 1, &count), JNI_OK);
  EXPECT_EQ(count, 0);
  ASSERT_EQ(createVm(jvm)(&vm, reinterpret_cast<void**>(&env), &arguments.init), JNI_OK);
  EXPECT_EQ(vm, jvm->vm());
  EXPECT_EQ(env->ExceptionCheck(), JNI_FALSE);
  EXPECT_EQ(createVm(jvm)(&vm, reinterpret_cast<void**>(&env), &arguments.init), JNI_EEXIST);
  EXPECT_EQ(createdVms(jvm)(&vm, 1, &count), JNI_OK);
  EXPECT_EQ(count, 1);
  ASSERT_TRUE(jvm->vmArguments());
  EXPECT_EQ(jvm->vmArguments()->version, JNI_VERSION_1_8);
  EXPECT_EQ(jvm->vmArguments()->options, (Lines{"-Dx=y"}));
  EXPECT_EQ(jvm->vmArguments()->extraInfo, (std::vector<void*>{nullptr}));
  EXPECT_TRUE(jvm->vmArguments()->ignoreUnrecognized);
  EXPECT_EQ(jvm.log.startingWith("JNI_"), (Lines{"JNI_GetCreatedJavaVMs", "JNI_CreateJavaVM",
                                                 "JNI_CreateJavaVM", "JNI_GetCreatedJavaVMs"}));
}

TEST(FakeMachine, AnswersAsScripted) {
  FakeJvm jvm;
  jvm->forgetVm();
  Arguments arguments;
  JavaVM* vm = nullptr;
  void* env = nullptr;
  jsize count = 0;
  jvm->setCreateResult(JNI_EINVAL);
  EXPECT_EQ(createVm(jvm)(&vm, &env, &arguments.init), JNI_EINVAL);
  EXPECT_FALSE(jvm->vmExists());
  jvm->setCreatedVmsResult(JNI_ERR);
  EXPECT_EQ(createdVms(jvm)(&vm, 1, &count), JNI_ERR);
  jvm->reset();
  jvm->preCreateVm();
  EXPECT_EQ(createdVms(jvm)(&vm, 1, &count), JNI_OK);
  EXPECT_EQ(count, 1);
}

TEST(FakeMachine, AttachesAndDetachesThreads) {
  FakeJvm jvm;
  jvm->forgetVm();
  jvm->preCreateVm();
  void* env = &jvm;
  EXPECT_EQ(jvm->vm()->GetEnv(&env, JNI_VERSION_1_8), JNI_EDETACHED);
  EXPECT_EQ(env, nullptr);
  EXPECT_EQ(jvm->vm()->AttachCurrentThread(&env, nullptr), JNI_OK);
  void* again = nullptr;
  EXPECT_EQ(jvm->vm()->AttachCurrentThreadAsDaemon(&again, nullptr), JNI_OK);
  EXPECT_EQ(env, again);
  EXPECT_EQ(jvm->attachedThreads(), 1);
  EXPECT_EQ(jvm->vm()->DetachCurrentThread(), JNI_OK);
  EXPECT_EQ(jvm->attachedThreads(), 0);
  jvm->failCall(jvm->callCount() + 1, fakejvm::Fault::nullResult());
  EXPECT_EQ(jvm->vm()->AttachCurrentThread(&env, nullptr), JNI_ERR);
  jvm->vm()->DestroyJavaVM();
  EXPECT_EQ(jvm.takeProblems(),
            (Lines{"DestroyJavaVM: the virtual machine lives until the process ends"}));
}

TEST(FakeMachine, ResetKeepsWhatBindingsHold) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  const jclass list = env->FindClass("java/util/ArrayList");
  const jmethodID init = env->GetMethodID(list, "<init>", "()V");
  jvm->reset();
  EXPECT_EQ(jvm.env(), env);
  EXPECT_NE(env->NewObject(list, init), nullptr);
  env->ExceptionCheck();
  EXPECT_EQ(env->GetMethodID(list, "<init>", "()V"), init);
}

TEST(FakeMachine, ForgetVmDetachesEverybody) {
  FakeJvm jvm;
  const jobject old = jvm.env()->FindClass("java/util/ArrayList");
  jvm->forgetVm();
  EXPECT_FALSE(jvm->vmExists());
  EXPECT_EQ(jvm->attachedThreads(), 0);
  EXPECT_EQ(jvm->resolve(old), nullptr);
}

TEST(FakeMachine, CountsLocalReferences) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  const int before = jvm->localRefs();
  env->PushLocalFrame(4);
  env->NewStringUTF("a");
  env->NewStringUTF("b");
  EXPECT_EQ(jvm->localRefs(), before + 2);
  EXPECT_EQ(jvm->localFrameDepth(), 1);
  env->PopLocalFrame(nullptr);
  EXPECT_EQ(jvm->localRefs(), before);
  EXPECT_EQ(jvm->localFrameDepth(), 0);
}

// The translation of an exception, call by call, as a library makes it.
TEST(FakeMachine, ScriptedExceptionsCanBeRead) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  jvm->script(jvm.object("thing", "pkg/Thing"), "run", throws("java/io/IOException", "broken"));
  const jmethodID run = env->GetMethodID(env->FindClass("pkg/Thing"), "run", "()V");
  const jclass throwable = env->FindClass("java/lang/Throwable");
  const jmethodID message = env->GetMethodID(throwable, "getMessage", "()Ljava/lang/String;");
  const jmethodID getClass = env->GetMethodID(throwable, "getClass", "()Ljava/lang/Class;");
  const jmethodID name =
      env->GetMethodID(env->FindClass("java/lang/Class"), "getName", "()Ljava/lang/String;");
  env->CallVoidMethod(jvm.local("thing"), run);
  const jthrowable exception = env->ExceptionOccurred();
  ASSERT_NE(exception, nullptr);
  env->ExceptionClear();
  const auto text = [&](jobject object, jmethodID id) {
    const jobject string = env->CallObjectMethod(object, id);
    env->ExceptionCheck();
    return jvm->resolve(string)->text();
  };
  EXPECT_EQ(text(exception, message), "broken");
  const jobject clazz = env->CallObjectMethod(exception, getClass);
  env->ExceptionCheck();
  EXPECT_EQ(text(clazz, name), "java.io.IOException");
}

TEST(FakeMachine, ListsCheckTheirIndex) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  const jclass list = env->FindClass("java/util/List");
  const jmethodID get = env->GetMethodID(list, "get", "(I)Ljava/lang/Object;");
  env->CallObjectMethod(jvm->local(makeList({})), get, 3);
  const fakejvm::ObjectRef pending = jvm->pendingException();
  ASSERT_TRUE(pending);
  EXPECT_EQ(pending->className, "java/lang/IndexOutOfBoundsException");
  EXPECT_EQ(pending->field("message").asText(), "Index 3 out of bounds for length 0");
  env->ExceptionClear();
}

TEST(FakeMachine, BoxesNumbersForBoxedResults) {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  const fakejvm::ObjectRef thing = jvm.object("thing", "pkg/Thing");
  jvm->script(thing, "depth", fakejvm::returns(30));
  jvm->script(thing, "rate", fakejvm::returns(75.5));
  const jclass clazz = env->FindClass("pkg/Thing");
  const auto call = [&](const char* name, const char* signature) {
    const jmethodID id = env->GetMethodID(clazz, name, signature);
    const jobject box = env->CallObjectMethod(jvm.local("thing"), id);
    env->ExceptionCheck();
    return jvm->resolve(box)->className;
  };
  EXPECT_EQ(call("depth", "()Ljava/lang/Integer;"), "java/lang/Integer");
  EXPECT_EQ(call("rate", "()Ljava/lang/Double;"), "java/lang/Double");
}

// --- native methods ---

jint JNICALL typeOf(JNIEnv* env, jobject, jlong handle) {
  if (handle == 1) env->ThrowNew(env->FindClass("java/lang/IllegalStateException"), "native");
  if (handle == 2) env->PushLocalFrame(1);
  if (handle == 3) throw std::runtime_error("escapes");
  if (handle == 4) env->NewStringUTF("left behind");
  return static_cast<jint>(handle) + 5;
}

struct NativeScene {
  FakeJvm jvm;
  JNIEnv* env = jvm.env();
  NativeScene() {
    char name[] = "typeOf", signature[] = "(J)I";
    const JNINativeMethod method{name, signature, reinterpret_cast<void*>(typeOf)};
    EXPECT_EQ(env->RegisterNatives(env->FindClass("pkg/Callbacks"), &method, 1), JNI_OK);
    jvm.log.clear();
  }
  int call(int64_t handle) { return jvm->callNative("typeOf", {handle}).asInt(); }
};

TEST(FakeNative, IsCalledInAFrameOfItsOwn) {
  NativeScene s;
  EXPECT_EQ(s.jvm->nativeMethods(), (Lines{"typeOf(J)I"}));
  const int before = s.jvm->localRefs();
  EXPECT_EQ(s.call(4), 9);
  EXPECT_EQ(s.jvm->localRefs(), before);
  EXPECT_EQ(s.jvm.log, (Lines{"enter typeOf(4)", "NewStringUTF \"left behind\"", "leave typeOf"}));
}

TEST(FakeNative, ItsExceptionComesOut) {
  NativeScene s;
  EXPECT_THROW(s.call(1), JavaThrow);
  EXPECT_EQ(s.jvm->pendingException(), nullptr);
}

TEST(FakeNative, ItsMisuseIsNoticed) {
  NativeScene s;
  s.call(2);
  s.call(3);
  EXPECT_THROW(s.jvm->callNative("unknown", {}), JavaThrow);
  EXPECT_EQ(s.jvm.takeProblems(), (Lines{"unbalanced local frames after typeOf",
                                         "C++ exception left the native method typeOf"}));
}

// From Java into native into Java: detaching there is refused, exceptions travel up.
TEST(FakeNative, CalledFromAScript) {
  NativeScene s;
  jint detached = JNI_OK;
  s.jvm->script(s.jvm.object("thing", "pkg/Thing"), "run", [&](Call& call) -> Value {
    detached = call.runtime.vm()->DetachCurrentThread();
    return call.runtime.callNative("typeOf", {1});
  });
  const jmethodID run = s.env->GetMethodID(s.env->FindClass("pkg/Thing"), "run", "()V");
  s.env->CallVoidMethod(s.jvm.local("thing"), run);
  ASSERT_TRUE(s.jvm->pendingException());
  EXPECT_EQ(s.jvm->pendingException()->field("message").asText(), "native");
  s.env->ExceptionClear();
  EXPECT_EQ(detached, JNI_ERR);
}

}  // namespace
}  // namespace kovtest
