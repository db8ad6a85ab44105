// SPDX-License-Identifier: MIT
#include "java/thread_env.h"

#include <atomic>

#include "java/jni_calls.h"
#include "platform/platform.h"

namespace lumora::kov::java {
namespace {

// Neither is ever destroyed: handles may be released after every other static object is gone.
constinit thread_local ThreadMark mark{};
constinit std::atomic<JavaVM*> joinedVm{nullptr};

}  // namespace

ThreadMark& threadMark() noexcept { return mark; }

void rememberVm(JavaVM* vm) noexcept { joinedVm.store(vm); }

ReleaseEnv::ReleaseEnv() noexcept {
  if (platform::processIsEnding()) return;
  if (mark.env != nullptr) {
    current = mark.env;
    return;
  }
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
