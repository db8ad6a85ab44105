// SPDX-License-Identifier: MIT
#include "calibration/java_boundary.h"

namespace lumora::kov {
namespace {

constexpr const char* kRuntimeException = "java/lang/RuntimeException";
constexpr const char* kUnknown = "unknown exception in a calibration callback";

void raiseNew(JNIEnv* env, const char* message) noexcept {
  java::jni::clearException(env);
  java::jni::raiseNew(env, java::jni::findClass(env, kRuntimeException), message);
}

}  // namespace

void raiseCurrentException(JNIEnv* env) noexcept {
  try {
    throw;
  } catch (const java::JavaException& e) {
    if (e.getThrowable() != nullptr) {
      java::jni::raise(env, e.getThrowable());
    } else {
      raiseNew(env, e.what());
    }
  } catch (const std::exception& e) {
    raiseNew(env, e.what());
  } catch (...) {
    raiseNew(env, kUnknown);
  }
}

}  // namespace lumora::kov
