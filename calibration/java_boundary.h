// SPDX-License-Identifier: MIT
#ifndef L5KOV_CALIBRATION_JAVA_BOUNDARY_H_
#define L5KOV_CALIBRATION_JAVA_BOUNDARY_H_

#include <exception>

#include "java/jni_calls.h"
#include "lumora/kov/java/java_exception.h"

namespace lumora::kov {

// Leaves a Java exception pending for what is being handled: the Java exception itself for a
// JavaException that carries one, a java.lang.RuntimeException with the text of any other
// exception, or with a fixed text for what is no std::exception. To be called in a catch block.
void raiseCurrentException(JNIEnv* env) noexcept;

// Runs the body of a native method. No C++ exception may unwind through Java frames (the process
// would be ended); it becomes a pending Java exception, and the result is zero or null.
template <class Body>
auto atJavaBoundary(JNIEnv* env, Body body) noexcept -> decltype(body()) {
  using Result = decltype(body());
  try {
    return body();
  } catch (...) {
    raiseCurrentException(env);
    return Result();
  }
}

}  // namespace lumora::kov

#endif  // L5KOV_CALIBRATION_JAVA_BOUNDARY_H_
