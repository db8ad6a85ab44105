// SPDX-License-Identifier: MIT
// Classes, members and static fields.
#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

constexpr const char* kNoClass = "java/lang/NoClassDefFoundError";
constexpr const char* kNoMethod = "java/lang/NoSuchMethodError";
constexpr const char* kNoField = "java/lang/NoSuchFieldError";

jint JNICALL getVersion(JNIEnv* env) {
  Entry call(env, "GetVersion");
  call.log();
  return JNI_VERSION_1_8;
}

jclass JNICALL findClass(JNIEnv* env, const char* name) {
  Entry call(env, "FindClass");
  call.log(name);
  if (call.fails(kNoClass, name)) return nullptr;
  if (call.machine.classes.isMissing(name)) {
    call.raise(kNoClass, name);
    return nullptr;
  }
  return static_cast<jclass>(call.local(call.machine.classes.classObject(name)));
}

jclass JNICALL getSuperclass(JNIEnv* env, jclass clazz) {
  Entry call(env, "GetSuperclass");
  const auto name = call.className(clazz);
  call.log(name.value_or("null"));
  const std::string above = name ? call.machine.classes.superclass(*name) : std::string();
  if (above.empty()) return nullptr;
  return static_cast<jclass>(call.local(call.machine.classes.classObject(above)));
}

jclass JNICALL getObjectClass(JNIEnv* env, jobject reference) {
  Entry call(env, "GetObjectClass");
  const ObjectRef object = call.object(reference);
  call.log(displayName(object));
  if (!object) {
    call.problem("null object");
    return nullptr;
  }
  return static_cast<jclass>(call.local(call.machine.classes.classObject(object->className)));
}

jboolean JNICALL isInstanceOf(JNIEnv* env, jobject reference, jclass clazz) {
  Entry call(env, "IsInstanceOf");
  const ObjectRef object = call.object(reference);
  const auto name = call.className(clazz);
  call.log(displayName(object) + " " + name.value_or("null"));
  // A null reference can be cast to anything.
  const bool is = name && (!object || call.machine.classes.isA(object->className, *name));
  return is ? JNI_TRUE : JNI_FALSE;
}

const Member* lookUp(JNIEnv* env, const char* slot, Member::Kind kind, jclass clazz,
                     const char* name, const char* signature) {
  Entry call(env, slot);
  const auto className = call.className(clazz);
  const Member wanted{kind, className.value_or("null"), name, signature, {}};
  call.log(wanted.text());
  if (!className) return nullptr;
  const char* error = kind == Member::Kind::kStaticField ? kNoField : kNoMethod;
  if (call.fails(error, name)) return nullptr;
  if (call.machine.classes.isMissing(*className, name, signature)) {
    call.raise(error, name);
    return nullptr;
  }
  return call.machine.classes.member(kind, *className, name, signature);
}

// Identifiers are opaque: they point to the Member.
template <typename Identifier>
Identifier identifier(const Member* member) {
  return reinterpret_cast<Identifier>(const_cast<Member*>(member));
}

jmethodID JNICALL getMethodId(JNIEnv* env, jclass clazz, const char* name, const char* signature) {
  return identifier<jmethodID>(
      lookUp(env, "GetMethodID", Member::Kind::kInstance, clazz, name, signature));
}

jmethodID JNICALL getStaticMethodId(JNIEnv* env, jclass clazz, const char* name,
                                    const char* signature) {
  return identifier<jmethodID>(
      lookUp(env, "GetStaticMethodID", Member::Kind::kStatic, clazz, name, signature));
}

jfieldID JNICALL getStaticFieldId(JNIEnv* env, jclass clazz, const char* name,
                                  const char* signature) {
  return identifier<jfieldID>(
      lookUp(env, "GetStaticFieldID", Member::Kind::kStaticField, clazz, name, signature));
}

jobject JNICALL getStaticObjectField(JNIEnv* env, jclass clazz, jfieldID id) {
  Entry call(env, "GetStaticObjectField");
  const auto className = call.className(clazz);
  const Member* field = call.member(id, Member::Kind::kStaticField);
  call.log(className.value_or("null") + "." + (field != nullptr ? field->name : "null"));
  if (!className || field == nullptr || call.failsQuietly()) return nullptr;
  if (!call.machine.classes.isA(*className, field->className)) {
    call.problem(*className + " has no field " + field->text());
    return nullptr;
  }
  const Value* value = call.machine.classes.staticField(*field);
  if (value == nullptr) call.machine.problem("unscripted field: " + field->text());
  return value == nullptr ? nullptr : call.local(value->asObject());
}

}  // namespace

void addClassSlots(JNINativeInterface_& table) {
  table.GetVersion = getVersion;
  table.FindClass = findClass;
  table.GetSuperclass = getSuperclass;
  table.GetObjectClass = getObjectClass;
  table.IsInstanceOf = isInstanceOf;
  table.GetMethodID = getMethodId;
  table.GetStaticMethodID = getStaticMethodId;
  table.GetStaticFieldID = getStaticFieldId;
  table.GetStaticObjectField = getStaticObjectField;
}

}  // namespace fakejvm
