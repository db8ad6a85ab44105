// SPDX-License-Identifier: MIT
// Calls of Java members: each result type in its three argument forms, on objects and classes.
#include <algorithm>
#include <cstdarg>

#include "tests/fake_jvm/java_call.h"
#include "tests/fake_jvm/slot_name.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

// Keeps a copy of a va_list, which cannot be captured itself.
struct ListCopy {
  explicit ListCopy(va_list source) { va_copy(list, source); }
  ~ListCopy() { va_end(list); }
  ListCopy(const ListCopy&) = delete;
  ListCopy& operator=(const ListCopy&) = delete;
  va_list list;
};

// The C promotions: everything narrower than int came as int, float as double.
std::vector<jvalue> readList(ListCopy& source, const Signature& signature) {
  std::vector<jvalue> values;
  for (const char type : signature.parameters) {
    jvalue value{};
    if (type == 'L' || type == '[') {
      value.l = va_arg(source.list, jobject);
    } else if (type == 'J') {
      value.j = va_arg(source.list, jlong);
    } else if (type == 'D') {
      value.d = va_arg(source.list, jdouble);
    } else if (type == 'F') {
      value.f = static_cast<jfloat>(va_arg(source.list, jdouble));
    } else if (type == 'Z') {
      value.z = va_arg(source.list, jint) != 0 ? JNI_TRUE : JNI_FALSE;
    } else {
      value.i = va_arg(source.list, jint);
    }
    values.push_back(value);
  }
  return values;
}

std::vector<jvalue> readArray(const jvalue* source, const Signature& signature) {
  std::vector<jvalue> values(signature.parameters.size());
  std::copy_n(source, values.size(), values.begin());
  return values;
}

template <typename R>
constexpr char resultKind() {
  if constexpr (std::is_void_v<R>) return 'V';
  if constexpr (std::is_same_v<R, jobject>) return 'L';
  if constexpr (std::is_same_v<R, jboolean>) return 'Z';
  if constexpr (std::is_same_v<R, jint>) return 'I';
  if constexpr (std::is_same_v<R, jlong>) return 'J';
  if constexpr (std::is_same_v<R, jdouble>) return 'D';
}

template <typename R>
R resultOf(const jvalue& raw) {
  if constexpr (std::is_same_v<R, jobject>) return raw.l;
  if constexpr (std::is_same_v<R, jboolean>) return raw.z;
  if constexpr (std::is_same_v<R, jint>) return raw.i;
  if constexpr (std::is_same_v<R, jlong>) return raw.j;
  if constexpr (std::is_same_v<R, jdouble>) return raw.d;
}

// The three slots of one result type. Target is jobject for instance members, jclass for static.
template <typename R, typename Target, SlotName kList, SlotName kVaList, SlotName kArray>
struct CallSlots {
  static constexpr Member::Kind kKind =
      std::is_same_v<Target, jclass> ? Member::Kind::kStatic : Member::Kind::kInstance;

  static R JNICALL list(JNIEnv* env, Target target, jmethodID id, ...) {
    va_list args;
    va_start(args, id);
    ListCopy copy(args);
    va_end(args);
    return run(env, kList.text, target, id,
               [&](const Signature& signature) { return readList(copy, signature); });
  }
  static R JNICALL vaList(JNIEnv* env, Target target, jmethodID id, va_list args) {
    ListCopy copy(args);
    return run(env, kVaList.text, target, id,
               [&](const Signature& signature) { return readList(copy, signature); });
  }
  static R JNICALL array(JNIEnv* env, Target target, jmethodID id, const jvalue* args) {
    return run(env, kArray.text, target, id,
               [&](const Signature& signature) { return readArray(args, signature); });
  }

 private:
  static R run(JNIEnv* env, const char* slot, Target target, jmethodID id,
               const ArgumentReader& reader) {
    const CallForm form{slot, kKind, resultKind<R>()};
    return resultOf<R>(callMember(env, form, target, id, reader));
  }
};

jobject JNICALL newObjectList(JNIEnv* env, jclass clazz, jmethodID id, ...) {
  va_list args;
  va_start(args, id);
  ListCopy copy(args);
  va_end(args);
  return newObject(env, "NewObject", clazz, id,
                   [&](const Signature& signature) { return readList(copy, signature); });
}

jobject JNICALL newObjectVaList(JNIEnv* env, jclass clazz, jmethodID id, va_list args) {
  ListCopy copy(args);
  return newObject(env, "NewObjectV", clazz, id,
                   [&](const Signature& signature) { return readList(copy, signature); });
}

jobject JNICALL newObjectArray(JNIEnv* env, jclass clazz, jmethodID id, const jvalue* args) {
  return newObject(env, "NewObjectA", clazz, id,
                   [&](const Signature& signature) { return readArray(args, signature); });
}

// Slots: the three members of the table, in their order.
template <typename Slots, typename List, typename VaList, typename Array>
void put(List& list, VaList& vaList, Array& array) {
  list = Slots::list;
  vaList = Slots::vaList;
  array = Slots::array;
}

void addInstanceCalls(JNINativeInterface_& t) {
  put<CallSlots<void, jobject, "CallVoidMethod", "CallVoidMethodV", "CallVoidMethodA">>(
      t.CallVoidMethod, t.CallVoidMethodV, t.CallVoidMethodA);
  put<CallSlots<jobject, jobject, "CallObjectMethod", "CallObjectMethodV", "CallObjectMethodA">>(
      t.CallObjectMethod, t.CallObjectMethodV, t.CallObjectMethodA);
  put<CallSlots<jboolean, jobject, "CallBooleanMethod", "CallBooleanMethodV",
                "CallBooleanMethodA">>(t.CallBooleanMethod, t.CallBooleanMethodV,
                                       t.CallBooleanMethodA);
  put<CallSlots<jint, jobject, "CallIntMethod", "CallIntMethodV", "CallIntMethodA">>(
      t.CallIntMethod, t.CallIntMethodV, t.CallIntMethodA);
  put<CallSlots<jlong, jobject, "CallLongMethod", "CallLongMethodV", "CallLongMethodA">>(
      t.CallLongMethod, t.CallLongMethodV, t.CallLongMethodA);
  put<CallSlots<jdouble, jobject, "CallDoubleMethod", "CallDoubleMethodV", "CallDoubleMethodA">>(
      t.CallDoubleMethod, t.CallDoubleMethodV, t.CallDoubleMethodA);
}

void addStaticCalls(JNINativeInterface_& t) {
  put<CallSlots<void, jclass, "CallStaticVoidMethod", "CallStaticVoidMethodV",
                "CallStaticVoidMethodA">>(t.CallStaticVoidMethod, t.CallStaticVoidMethodV,
                                          t.CallStaticVoidMethodA);
  put<CallSlots<jobject, jclass, "CallStaticObjectMethod", "CallStaticObjectMethodV",
                "CallStaticObjectMethodA">>(t.CallStaticObjectMethod, t.CallStaticObjectMethodV,
                                            t.CallStaticObjectMethodA);
  put<CallSlots<jboolean, jclass, "CallStaticBooleanMethod", "CallStaticBooleanMethodV",
                "CallStaticBooleanMethodA">>(t.CallStaticBooleanMethod, t.CallStaticBooleanMethodV,
                                             t.CallStaticBooleanMethodA);
  put<CallSlots<jint, jclass, "CallStaticIntMethod", "CallStaticIntMethodV",
                "CallStaticIntMethodA">>(t.CallStaticIntMethod, t.CallStaticIntMethodV,
                                         t.CallStaticIntMethodA);
  put<CallSlots<jlong, jclass, "CallStaticLongMethod", "CallStaticLongMethodV",
                "CallStaticLongMethodA">>(t.CallStaticLongMethod, t.CallStaticLongMethodV,
                                          t.CallStaticLongMethodA);
  put<CallSlots<jdouble, jclass, "CallStaticDoubleMethod", "CallStaticDoubleMethodV",
                "CallStaticDoubleMethodA">>(t.CallStaticDoubleMethod, t.CallStaticDoubleMethodV,
                                            t.CallStaticDoubleMethodA);
}

}  // namespace

void addCallSlots(JNINativeInterface_& table) {
  addInstanceCalls(table);
  addStaticCalls(table);
  table.NewObject = newObjectList;
  table.NewObjectV = newObjectVaList;
  table.NewObjectA = newObjectArray;
}

}  // namespace fakejvm
