// SPDX-License-Identifier: MIT
#include "lumora/kov/java/java_env.h"

#include <stdexcept>

#include "java/java_classes.h"
#include "java/jni_calls.h"
#include "java/jvm_library.h"
#include "java/local_frame.h"
#include "java/thread_env.h"
#include "platform/platform.h"

namespace lumora::kov::java {
namespace {

constexpr const char* kReleased =
    "Java is no longer available on this thread: DeleteJavaVM() was called";
constexpr const char* kThreadEnding = "Java is no longer available: the thread is ending";

}  // namespace

struct EnvOfThread {
  // When the constructor throws, the next call on this thread tries again.
  static JavaEnv* make() {
    if (threadHasEnded()) throw std::logic_error(kThreadEnding);
    platform::callAtThreadEnd(&end);
    setJavaEnvOfThread(nullptr);  // the slot is there; setting it below cannot fail
    auto* javaEnv = new JavaEnv;
    setJavaEnvOfThread(javaEnv);
    return javaEnv;
  }
  static void end() {
    JavaEnv* javaEnv = javaEnvOfThread();
    setThreadHasEnded();  // also without one: what came now would never be destroyed
    delete javaEnv;
  }
  static void release(JavaEnv& javaEnv) { javaEnv.release(); }
};

JavaEnv* Env() {
  JavaEnv* javaEnv = javaEnvOfThread();
  return javaEnv != nullptr ? javaEnv : EnvOfThread::make();
}

JavaEnv* readyEnv() {
  JavaEnv* javaEnv = Env();
  if (!javaEnv->hasClasses()) throw std::logic_error(kReleased);
  return javaEnv;
}

void DeleteJavaVM() {
  if (threadHasEnded()) return;  // nothing is held any more; static objects may still call
  // Kept: the virtual machine is never destroyed; a process cannot have a second one.
  if (JvmLibrary::instance().runningVm() == nullptr) return;
  EnvOfThread::release(*Env());
}

JavaEnv::JavaEnv() {
  const JvmLibrary::Joined joined = JvmLibrary::instance().joinOrCreate();
  vm_ = joined.vm;
  createdVm_ = joined.created;
  try {
    env_ = std::make_unique<JNIEnv*>(joined.env);
    classes_ = std::make_unique<JavaClasses>();
    classes_->build(this);
    setJniEnvOfThread(joined.env);
  } catch (...) {
    // Only memory can run out here. The object's destructor will not run, so its detach is due now.
    if (!createdVm_) jni::detachCurrentThread(vm_);
    throw;
  }
  rememberVm(vm_);
}

// The thread is ending.
JavaEnv::~JavaEnv() {
  if (!createdVm_ && !platform::processIsEnding()) release();
}

// Does nothing the second time: the thread's attachment may be someone else's by then.
void JavaEnv::release() {
  if (classes_ == nullptr) return;
  if (createdVm_) {
    classes_->system->gc();
    classes_.reset();
    return;
  }
  classes_.reset();
  // A thread with Java frames below it (inside a callback) cannot be detached and stays attached.
  if (!jni::detachCurrentThread(vm_)) return;
  *env_ = nullptr;
  setJniEnvOfThread(nullptr);
}

const JavaClasses& JavaEnv::classes() const {
  if (classes_ == nullptr) throw std::logic_error(kReleased);
  return *classes_;
}

}  // namespace lumora::kov::java
