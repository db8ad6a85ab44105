// SPDX-License-Identifier: MIT
// The pending exception.
#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

jint JNICALL throwObject(JNIEnv* env, jthrowable reference) {
  Entry call(env, "Throw");
  const ObjectRef throwable = call.object(reference);
  call.log(displayName(throwable));
  if (!throwable) {
    call.problem("null throwable");
    return JNI_ERR;
  }
  if (!call.machine.classes.isA(throwable->className, "java/lang/Throwable")) {
    call.problem(displayName(throwable) + " is no throwable");
    return JNI_ERR;
  }
  call.thread->pending = throwable;
  return JNI_OK;
}

jint JNICALL throwNew(JNIEnv* env, jclass clazz, const char* message) {
  Entry call(env, "ThrowNew");
  const auto name = call.className(clazz);
  call.log(name.value_or("null") + " " + (message == nullptr ? "null" : quoted(message)));
  if (!name) return JNI_ERR;
  call.raise(*name, message == nullptr ? std::nullopt : std::optional<std::string>(message));
  return JNI_OK;
}

jthrowable JNICALL exceptionOccurred(JNIEnv* env) {
  Entry call(env, "ExceptionOccurred", PendingRule::kChecks);
  call.log();
  return static_cast<jthrowable>(call.local(call.thread->pending));
}

jboolean JNICALL exceptionCheck(JNIEnv* env) {
  Entry call(env, "ExceptionCheck", PendingRule::kChecks);
  call.log();
  return call.thread->pending ? JNI_TRUE : JNI_FALSE;
}

void JNICALL exceptionClear(JNIEnv* env) {
  Entry call(env, "ExceptionClear", PendingRule::kChecks);
  call.log();
  call.thread->pending = nullptr;
}

// As in HotSpot, describing an exception clears it.
void JNICALL exceptionDescribe(JNIEnv* env) {
  Entry call(env, "ExceptionDescribe", PendingRule::kAllowed);
  call.log();
  call.thread->pending = nullptr;
}

}  // namespace

void addExceptionSlots(JNINativeInterface_& table) {
  table.Throw = throwObject;
  table.ThrowNew = throwNew;
  table.ExceptionOccurred = exceptionOccurred;
  table.ExceptionCheck = exceptionCheck;
  table.ExceptionClear = exceptionClear;
  table.ExceptionDescribe = exceptionDescribe;
}

}  // namespace fakejvm
