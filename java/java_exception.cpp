// SPDX-License-Identifier: MIT
#include "lumora/kov/java/java_exception.h"

#include "java/jni_calls.h"
#include "java/thread_env.h"

namespace lumora::kov::java {
namespace {

// Through the calling thread's environment, which is the one that caught the exception unless the
// exception has travelled: using another thread's is forbidden, and using one whose thread has
// detached ends the process.
jthrowable anotherReference(jthrowable throwable) {
  if (throwable == nullptr) return nullptr;
  const ReleaseEnv here;
  if (here.env() == nullptr) return nullptr;
  return static_cast<jthrowable>(jni::newGlobalRef(here.env(), throwable));
}

}  // namespace

JavaException::JavaException(JNIEnv* env, jthrowable throwable, const std::string& className,
                             const std::string& message)
    : std::runtime_error(message), env(env), throwable(nullptr), className(className) {
  // Last, so that nothing can throw while a reference is held. The environment is the caller's own.
  this->throwable = static_cast<jthrowable>(jni::newGlobalRef(env, throwable));
}

JavaException::JavaException(const JavaException& other)
    : std::runtime_error(other), env(other.env), throwable(nullptr), className(other.className) {
  throwable = anotherReference(other.throwable);
}

JavaException::~JavaException() { releaseGlobalRef(throwable); }

}  // namespace lumora::kov::java
