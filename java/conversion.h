// SPDX-License-Identifier: MIT
#ifndef L5KOV_JAVA_CONVERSION_H_
#define L5KOV_JAVA_CONVERSION_H_

#include <cstdint>
#include <string>
#include <type_traits>

#include "java/descriptor.h"
#include "java/jni_calls.h"

// Values on their way into Java and back. A local reference made here belongs to the thread's
// current local frame.
namespace lumora::kov::java {

inline jboolean toJava(JNIEnv*, bool value) {
  return static_cast<jboolean>(value ? JNI_TRUE : JNI_FALSE);
}
inline jint toJava(JNIEnv*, std::int32_t value) { return static_cast<jint>(value); }
inline jlong toJava(JNIEnv*, std::int64_t value) { return static_cast<jlong>(value); }
inline jdouble toJava(JNIEnv*, double value) { return value; }
inline jobject toJava(JNIEnv*, jobject value) { return value; }
// Null when the Java heap is full: the call is then made with null, and the pending
// OutOfMemoryError is discarded like that of any plain call.
inline jobject toJava(JNIEnv* env, const std::string& text) { return jni::newString(env, text); }

// What a parameter of a catalogue row becomes.
template <class Parameter>
struct JavaValue {
  using Type = decltype(toJava(nullptr, std::declval<Parameter>()));
};
template <Wrapper Parameter>
struct JavaValue<Parameter> {
  using Type = jobject;
};
template <>
struct JavaValue<jdoubleArray> {
  using Type = jobject;
};

// True when Values are what the parameters of Signature become. A call goes through a C variable
// argument list, where a wrong width or kind is read as garbage.
template <class Signature, class... Values>
inline constexpr bool kArgumentsFit = false;
template <class Result, class... Parameters, class... Values>
  requires(sizeof...(Parameters) == sizeof...(Values))
inline constexpr bool kArgumentsFit<Result(Parameters...), Values...> =
    (std::is_same_v<Values, typename JavaValue<Parameters>::Type> && ...);

// The bytes of a Java text up to the terminating NUL; U+0000 inside it is 0xC0 0x80. A null
// reference reads as the empty text.
inline std::string toText(JNIEnv* env, jobject text) {
  if (text == nullptr) return {};
  const jni::TextChars held(env, static_cast<jstring>(text));
  if (held.chars() == nullptr) jni::throwOutOfMemory(env);
  return held.chars();
}

}  // namespace lumora::kov::java

#endif  // L5KOV_JAVA_CONVERSION_H_
