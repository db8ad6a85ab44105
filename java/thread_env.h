// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_THREAD_ENV_H_
#define L5KOV_JAVA_THREAD_ENV_H_

#include <jni.h>

namespace lumora::kov::java {

class JavaEnv;

// What is known of the calling thread without asking Java, until it is gone.
JNIEnv* jniEnvOfThread() noexcept;  // while attached through this library
void setJniEnvOfThread(JNIEnv* env);
JavaEnv* javaEnvOfThread() noexcept;  // null before there is one, and once it is being destroyed
void setJavaEnvOfThread(JavaEnv* javaEnv);
// The thread's JavaEnv is being, or has been, destroyed.
bool threadHasEnded() noexcept;
void setThreadHasEnded();

// The calling thread's environment for one release, whatever the thread has done before: its own,
// or that of an attachment that ends with this object. env() is null when there is no Java to call:
// nothing was ever started, the process is ending, or the thread cannot be attached.
class ReleaseEnv {
 public:
  ReleaseEnv() noexcept;
  ~ReleaseEnv();
  ReleaseEnv(const ReleaseEnv&) = delete;
  ReleaseEnv& operator=(const ReleaseEnv&) = delete;
  JNIEnv* env() const { return current; }

 private:
  JNIEnv* current = nullptr;
  JavaVM* detachFrom = nullptr;
};

// Releases a global reference (null is allowed) on the calling thread, whichever thread made it.
void releaseGlobalRef(jobject object) noexcept;

// The virtual machine that this process's threads have joined; remembered for ReleaseEnv.
void rememberVm(JavaVM* vm) noexcept;

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_THREAD_ENV_H_
