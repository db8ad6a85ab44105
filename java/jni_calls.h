// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_JNI_CALLS_H_
#define L5KOV_JAVA_JNI_CALLS_H_

#include <jni.h>

#include <new>
#include <string>
#include <type_traits>

#include "java/catalogue_row.h"

// Every call through a JNI function table stands in this file and nowhere else: what the Java
// runtime sees is decided here.
//
// Two kinds. Plain ones do what they say and leave a Java exception pending; the next guarded call
// discards it. Guarded ones (below) turn it into a JavaException.
namespace lumora::kov::java::jni {

// ---- The virtual machine ----

// Null when the thread cannot be attached; the call's own result says no more than that.
inline JNIEnv* attachCurrentThread(JavaVM* vm) {
  void* env = nullptr;
  vm->AttachCurrentThread(&env, nullptr);
  return static_cast<JNIEnv*>(env);
}
inline bool detachCurrentThread(JavaVM* vm) { return vm->DetachCurrentThread() == JNI_OK; }
// The calling thread's environment, null when the thread is not attached.
inline JNIEnv* attachedEnv(JavaVM* vm) {
  void* env = nullptr;
  return vm->GetEnv(&env, JNI_VERSION_1_8) == JNI_OK ? static_cast<JNIEnv*>(env) : nullptr;
}

// ---- Plain: look-ups. Looking a member up on a null class would end the process: skipped. ----

inline jclass findClass(JNIEnv* env, const char* name) { return env->FindClass(name); }
inline jmethodID methodId(JNIEnv* env, jclass clazz, const Member& member) {
  if (clazz == nullptr || member.kind == Member::Kind::kEmpty) return nullptr;
  return member.kind == Member::Kind::kStatic
             ? env->GetStaticMethodID(clazz, member.name, member.signature)
             : env->GetMethodID(clazz, member.name, member.signature);
}
inline jobject staticObjectField(JNIEnv* env, jclass clazz, const char* name,
                                 const char* signature) {
  if (clazz == nullptr) return nullptr;
  const jfieldID field = env->GetStaticFieldID(clazz, name, signature);
  return field == nullptr ? nullptr : env->GetStaticObjectField(clazz, field);
}

// ---- Plain: references, frames, comparison ----

inline jobject newGlobalRef(JNIEnv* env, jobject object) {
  return object == nullptr ? nullptr : env->NewGlobalRef(object);
}
inline void deleteGlobalRef(JNIEnv* env, jobject object) { env->DeleteGlobalRef(object); }
inline bool pushLocalFrame(JNIEnv* env, jint capacity) {
  return env->PushLocalFrame(capacity) == 0;
}
inline void popLocalFrame(JNIEnv* env) { env->PopLocalFrame(nullptr); }
inline bool isSameObject(JNIEnv* env, jobject a, jobject b) {
  return env->IsSameObject(a, b) == JNI_TRUE;
}

// ---- Plain: exceptions ----

inline jthrowable pendingException(JNIEnv* env) { return env->ExceptionOccurred(); }
inline bool hasPendingException(JNIEnv* env) { return env->ExceptionCheck() == JNI_TRUE; }
inline void clearException(JNIEnv* env) { env->ExceptionClear(); }
inline void raise(JNIEnv* env, jthrowable throwable) { env->Throw(throwable); }
inline void raiseNew(JNIEnv* env, jclass clazz, const char* message) {
  if (clazz != nullptr) env->ThrowNew(clazz, message);
}

// ---- Plain: texts and arrays. Text crosses as modified UTF-8, unchanged, in both directions. ----

inline jstring newString(JNIEnv* env, const std::string& text) {
  return env->NewStringUTF(text.c_str());
}
// Null when memory ran out; an OutOfMemoryError is pending then.
inline jdoubleArray newDoubleArray(JNIEnv* env, const double* values, jsize count) {
  const jdoubleArray array = env->NewDoubleArray(count);
  if (array != nullptr) env->SetDoubleArrayRegion(array, 0, count, values);
  return array;
}
// The characters of a Java text while they are held; chars() is null when memory ran out.
class TextChars {
 public:
  TextChars(JNIEnv* env, jstring text)
      : env(env), text(text), held(env->GetStringUTFChars(text, nullptr)) {}
  ~TextChars() {
    if (held != nullptr) env->ReleaseStringUTFChars(text, held);
  }
  TextChars(const TextChars&) = delete;
  TextChars& operator=(const TextChars&) = delete;
  const char* chars() const { return held; }

 private:
  JNIEnv* env;
  jstring text;
  const char* held;
};

inline bool registerNatives(JNIEnv* env, jclass clazz, const JNINativeMethod* table, jint count) {
  return env->RegisterNatives(clazz, table, count) == 0;
}

// A call without a guard, for the translation of an exception that a guard has found. A Java
// exception that it raises itself is dropped, and the result with it.
inline jobject plainCallObject(JNIEnv* env, jobject object, jmethodID id) {
  if (object == nullptr || id == nullptr) return nullptr;
  const jobject result = env->CallObjectMethod(object, id);
  if (!hasPendingException(env)) return result;
  clearException(env);
  return nullptr;
}

// ---- Guarded calls ----

// Clears `throwable` from the environment and throws it as a JavaException.
[[noreturn]] void throwTranslated(JNIEnv* env, jthrowable throwable);
// JavaException of class java.lang.NoSuchMethodError or java.lang.NullPointerException.
[[noreturn]] void throwMissingMember(JNIEnv* env, const char* className, const Member& member);
[[noreturn]] void throwNullTarget(JNIEnv* env, const char* className, const Member& member);
// For a plain call that had to give something and gave null: throws the pending exception, or
// std::bad_alloc when there is none.
[[noreturn]] void throwOutOfMemory(JNIEnv* env);

// A global reference that is null only when `object` is.
inline jobject requiredGlobalRef(JNIEnv* env, jobject object) {
  const jobject global = newGlobalRef(env, object);
  if (global == nullptr && object != nullptr) throwOutOfMemory(env);
  return global;
}

// The three steps of every call into Java: discard a pending exception that an earlier plain call
// left; call; on an exception, throw it. None is ever left pending.
template <class Call>
inline auto guarded(JNIEnv* env, Call call) {
  env->ExceptionClear();
  if constexpr (std::is_void_v<decltype(call())>) {
    call();
    if (const jthrowable thrown = env->ExceptionOccurred()) throwTranslated(env, thrown);
  } else {
    const auto result = call();
    if (const jthrowable thrown = env->ExceptionOccurred()) throwTranslated(env, thrown);
    return result;
  }
}

// What a guarded call addresses. A null identifier or a null target would end the process.
struct Target {
  jobject object;  // the class, for a static member and for a constructor
  jmethodID id;
  const char* className;
  const Member& member;

  void check(JNIEnv* env) const {
    if (id == nullptr) throwMissingMember(env, className, member);
    if (object == nullptr) throwNullTarget(env, className, member);
  }
  jclass clazz() const { return static_cast<jclass>(object); }
};

// The check comes after the first step, so that a failed look-up's exception goes as any other.
template <class Call>
inline auto guarded(JNIEnv* env, const Target& at, Call call) {
  return guarded(env, [&] {
    at.check(env);
    return call();
  });
}

template <class... Arguments>
inline void callVoid(JNIEnv* env, const Target& at, Arguments... arguments) {
  guarded(env, at, [&] { env->CallVoidMethod(at.object, at.id, arguments...); });
}
template <class... Arguments>
inline jobject callObject(JNIEnv* env, const Target& at, Arguments... arguments) {
  return guarded(env, at, [&] { return env->CallObjectMethod(at.object, at.id, arguments...); });
}
// True exactly when the Java result is 1.
template <class... Arguments>
inline bool callBoolean(JNIEnv* env, const Target& at, Arguments... arguments) {
  const auto call = [&] { return env->CallBooleanMethod(at.object, at.id, arguments...); };
  return guarded(env, at, call) == JNI_TRUE;
}
template <class... Arguments>
inline jint callInt(JNIEnv* env, const Target& at, Arguments... arguments) {
  return guarded(env, at, [&] { return env->CallIntMethod(at.object, at.id, arguments...); });
}
template <class... Arguments>
inline jlong callLong(JNIEnv* env, const Target& at, Arguments... arguments) {
  return guarded(env, at, [&] { return env->CallLongMethod(at.object, at.id, arguments...); });
}
template <class... Arguments>
inline jdouble callDouble(JNIEnv* env, const Target& at, Arguments... arguments) {
  return guarded(env, at, [&] { return env->CallDoubleMethod(at.object, at.id, arguments...); });
}
inline void callStaticVoid(JNIEnv* env, const Target& at) {
  guarded(env, at, [&] { env->CallStaticVoidMethod(at.clazz(), at.id); });
}
inline jobject callStaticObject(JNIEnv* env, const Target& at) {
  return guarded(env, at, [&] { return env->CallStaticObjectMethod(at.clazz(), at.id); });
}
// Guarded as a call is: without the first step a stale exception would pass for the constructor's.
template <class... Arguments>
inline jobject newObject(JNIEnv* env, const Target& at, Arguments... arguments) {
  return guarded(env, at, [&] { return env->NewObject(at.clazz(), at.id, arguments...); });
}

}  // namespace lumora::kov::java::jni

#endif  // L5KOV_JAVA_JNI_CALLS_H_
