// SPDX-License-Identifier: MIT
#include <string>

#include "java/conversion.h"
#include "java/jni_calls.h"
#include "lumora/kov/java/java_exception.h"

namespace lumora::kov::java::jni {
namespace {

constexpr const char* kNoSuchMethodError = "java.lang.NoSuchMethodError";
constexpr const char* kNullPointerException = "java.lang.NullPointerException";

constexpr Member kGetMessage = method("getMessage", "()Ljava/lang/String;");
constexpr Member kGetClass = method("getClass", "()Ljava/lang/Class;");
constexpr Member kGetName = method("getName", "()Ljava/lang/String;");

// A member by name, or null. Nothing is taken from the thread's bindings: an exception must be
// translated before they exist, too. A look-up that fails leaves nothing pending here.
jmethodID lookUp(JNIEnv* env, const char* className, const Member& member) {
  const jmethodID id = methodId(env, findClass(env, className), member);
  if (id == nullptr) clearException(env);
  return id;
}

// What can be had of a text; translating a failure of the translation would never end.
std::string textOrEmpty(JNIEnv* env, jobject text) {
  if (text == nullptr) return {};
  const TextChars held(env, static_cast<jstring>(text));
  if (held.chars() != nullptr) return held.chars();
  clearException(env);
  return {};
}

std::string messageOf(JNIEnv* env, jthrowable throwable) {
  const jmethodID getMessage = lookUp(env, "java/lang/Throwable", kGetMessage);
  return textOrEmpty(env, plainCallObject(env, throwable, getMessage));
}

std::string classNameOf(JNIEnv* env, jthrowable throwable) {
  const jmethodID getName = lookUp(env, "java/lang/Class", kGetName);
  const jmethodID getClass = lookUp(env, "java/lang/Throwable", kGetClass);
  const jobject clazz = plainCallObject(env, throwable, getClass);
  return textOrEmpty(env, plainCallObject(env, clazz, getName));
}

std::string described(const char* className, const Member& member) {
  return std::string(className) + '.' + member.name + member.signature;
}

// Apart from the throw, so that no text is left to be destroyed while the stack unwinds.
JavaException translated(JNIEnv* env, jthrowable throwable) {
  clearException(env);
  const std::string message = messageOf(env, throwable);
  const std::string className = classNameOf(env, throwable);
  return JavaException(env, throwable, className, message);
}

}  // namespace

void throwTranslated(JNIEnv* env, jthrowable throwable) { throw translated(env, throwable); }

void throwMissingMember(JNIEnv* env, const char* className, const Member& member) {
  throw JavaException(env, nullptr, kNoSuchMethodError, described(className, member));
}

void throwNullTarget(JNIEnv* env, const char* className, const Member& member) {
  throw JavaException(env, nullptr, kNullPointerException,
                      described(className, member) + " called on null");
}

void throwOutOfMemory(JNIEnv* env) {
  if (const jthrowable thrown = pendingException(env)) throwTranslated(env, thrown);
  throw std::bad_alloc();
}

}  // namespace lumora::kov::java::jni
