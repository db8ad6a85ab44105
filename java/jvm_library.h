// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_JVM_LIBRARY_H_
#define L5KOV_JAVA_JVM_LIBRARY_H_

#include <jni.h>

#include <mutex>

#include "platform/platform.h"

namespace lumora::kov::java {

// The Java runtime library of the plug-in folder: loaded on first use, once per process, also when
// loading fails. Given back at process exit; the virtual machine itself is never destroyed.
class JvmLibrary {
 public:
  // Throws std::range_error "bad conversion" when the path is not valid UTF-8; the next call tries
  // again then.
  static JvmLibrary& instance();

  // The virtual machine that runs in the process, or null.
  JavaVM* runningVm() const;

  struct Joined {
    JavaVM* vm;
    JNIEnv* env;
    bool created;
  };
  // Attaches the calling thread to the running virtual machine, whoever started it, or creates one
  // on this thread. Throws std::runtime_error "Failed to create Java VM".
  Joined joinOrCreate();

 private:
  using CreateJavaVM = jint(JNICALL*)(JavaVM**, void**, void*);
  using GetCreatedJavaVMs = jint(JNICALL*)(JavaVM**, jsize, jsize*);

  JvmLibrary();
  ~JvmLibrary();
  Joined create() const;

  CreateJavaVM createJavaVM = nullptr;
  GetCreatedJavaVMs getCreatedJavaVMs = nullptr;
  platform::RuntimeLibrary module = nullptr;
  // Around search-or-create: two first users would otherwise both create, and one would fail.
  std::mutex searchOrCreate;
};

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_JVM_LIBRARY_H_
