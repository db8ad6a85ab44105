// SPDX-License-Identifier: MIT
#include "java/thread_env.h"

#include <atomic>

#include "java/jni_calls.h"
#include "platform/platform.h"

namespace lumora::kov::java {
namespace {

using platform::ThreadSlot;

// Never destroyed: handles may be released after every other static object is gone.
constinit std::atomic<JavaVM*> joinedVm{nullptr};

char ended;  // its address stands for a JavaEnv that is no more

}  // namespace

JNIEnv* jniEnvOfThread() noexcept {
  return static_cast<JNIEnv*>(platform::threadSlot(ThreadSlot::kJniEnv));
}

void setJniEnvOfThread(JNIEnv* env) { platform::setThreadSlot(ThreadSlot::kJniEnv, env); }

JavaEnv* javaEnvOfThread() noexcept {
  void* javaEnv = platform::threadSlot(ThreadSlot::kJavaEnv);
  return javaEnv == &ended ? nullptr : static_cast<JavaEnv*>(javaEnv);
}

void setJavaEnvOfThread(JavaEnv* javaEnv) {
  platform::setThreadSlot(ThreadSlot::kJavaEnv, javaEnv);
}

bool threadHasEnded() noexcept { return platform::threadSlot(ThreadSlot::kJavaEnv) == &ended; }

void setThreadHasEnded() { platform::setThreadSlot(ThreadSlot::kJavaEnv, &ended); }

void rememberVm(JavaVM* vm) noexcept { joinedVm.store(vm); }

ReleaseEnv::ReleaseEnv() noexcept {
  if (platform::processIsEnding()) return;
  current = jniEnvOfThread();
  if (current != nullptr) return;
  JavaVM* vm = joinedVm.load();
  if (vm == nullptr) return;
  // A thread that was attached by someone else, or one that has never called into Java (then a
  // full environment with its look-ups would be wasted), or one that has let go of Java already.
  current = jni::attachedEnv(vm);
  if (current != nullptr) return;
  current = jni::attachCurrentThread(vm);
  if (current != nullptr) detachFrom = vm;
}

ReleaseEnv::~ReleaseEnv() {
  if (detachFrom != nullptr) jni::detachCurrentThread(detachFrom);
}

void releaseGlobalRef(jobject object) noexcept {
  if (object == nullptr) return;
  const ReleaseEnv here;
  if (here.env() != nullptr) jni::deleteGlobalRef(here.env(), object);
}

}  // namespace lumora::kov::java
