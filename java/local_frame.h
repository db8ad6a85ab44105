// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_LOCAL_FRAME_H_
#define L5KOV_JAVA_LOCAL_FRAME_H_

#include "java/jni_calls.h"
#include "lumora/kov/java/java_env.h"

namespace lumora::kov::java {

// The calling thread's environment, ready for an operation.
// Throws std::logic_error after DeleteJavaVM() on this thread, and what Env() throws.
JavaEnv* readyEnv();

// The local references of one exported operation, or of one entry of a list that it walks: the
// virtual machine releases them all when the operation returns, so none is deleted one by one.
// Without it they would pile up until the thread detaches; a thread that lives for weeks would fill
// the Java heap.
class LocalFrame {
 public:
  // How many references the virtual machine is told to expect. It makes room for more by itself;
  // the number keeps its own checks (-Xcheck:jni) quiet.
  static constexpr jint kFew = 32;
  static constexpr jint kMany = 1024;  // operations that poll or list monitors

  // Makes the thread's bindings first if need be: what they keep must outlive the frame.
  explicit LocalFrame(jint capacity = kFew) : javaEnv(readyEnv()), env(javaEnv->env()) {
    if (!jni::pushLocalFrame(env, capacity)) jni::throwOutOfMemory(env);
  }
  ~LocalFrame() { jni::popLocalFrame(env); }
  LocalFrame(const LocalFrame&) = delete;
  LocalFrame& operator=(const LocalFrame&) = delete;

  JavaEnv* thread() const { return javaEnv; }

 private:
  JavaEnv* javaEnv;
  JNIEnv* env;
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_LOCAL_FRAME_H_
