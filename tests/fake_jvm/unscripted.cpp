// SPDX-License-Identifier: MIT
// Every slot of the function table in its unscripted form: it names itself and returns 0.
#include <type_traits>

#include "tests/fake_jvm/machine.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

using Table = JNINativeInterface_;

void report(const char* name) {
  Machine& machine = Machine::get();
  const std::lock_guard<std::mutex> guard(machine.mutex);
  machine.problem(std::string("unscripted slot: ") + name);
}

template <auto kSlot, typename Function>
struct Unscripted;

template <auto kSlot, typename R, typename... Args>
struct Unscripted<kSlot, R(JNICALL*)(JNIEnv*, Args...)> {
  static inline const char* name = "";
  static R JNICALL call(JNIEnv*, Args...) {
    report(name);
    return R();
  }
};

template <auto kSlot, typename R, typename... Args>
struct Unscripted<kSlot, R(JNICALL*)(JNIEnv*, Args..., ...)> {
  static inline const char* name = "";
  static R JNICALL call(JNIEnv*, Args..., ...) {
    report(name);
    return R();
  }
};

template <auto kSlot>
void fill(Table& table, const char* name) {
  using Slot = Unscripted<kSlot, std::remove_reference_t<decltype(table.*kSlot)>>;
  Slot::name = name;
  table.*kSlot = Slot::call;
}

void fillStaticCalls(Table& t) {
  fill<&Table::CallStaticObjectMethod>(t, "CallStaticObjectMethod");
  fill<&Table::CallStaticObjectMethodV>(t, "CallStaticObjectMethodV");
  fill<&Table::CallStaticObjectMethodA>(t, "CallStaticObjectMethodA");
  fill<&Table::CallStaticBooleanMethod>(t, "CallStaticBooleanMethod");
  fill<&Table::CallStaticBooleanMethodV>(t, "CallStaticBooleanMethodV");
  fill<&Table::CallStaticBooleanMethodA>(t, "CallStaticBooleanMethodA");
  fill<&Table::CallStaticByteMethod>(t, "CallStaticByteMethod");
  fill<&Table::CallStaticByteMethodV>(t, "CallStaticByteMethodV");
  fill<&Table::CallStaticByteMethodA>(t, "CallStaticByteMethodA");
  fill<&Table::CallStaticCharMethod>(t, "CallStaticCharMethod");
  fill<&Table::CallStaticCharMethodV>(t, "CallStaticCharMethodV");
  fill<&Table::CallStaticCharMethodA>(t, "CallStaticCharMethodA");
  fill<&Table::CallStaticShortMethod>(t, "CallStaticShortMethod");
  fill<&Table::CallStaticShortMethodV>(t, "CallStaticShortMethodV");
  fill<&Table::CallStaticShortMethodA>(t, "CallStaticShortMethodA");
  fill<&Table::CallStaticIntMethod>(t, "CallStaticIntMethod");
  fill<&Table::CallStaticIntMethodV>(t, "CallStaticIntMethodV");
  fill<&Table::CallStaticIntMethodA>(t, "CallStaticIntMethodA");
  fill<&Table::CallStaticLongMethod>(t, "CallStaticLongMethod");
  fill<&Table::CallStaticLongMethodV>(t, "CallStaticLongMethodV");
  fill<&Table::CallStaticLongMethodA>(t, "CallStaticLongMethodA");
  fill<&Table::CallStaticFloatMethod>(t, "CallStaticFloatMethod");
  fill<&Table::CallStaticFloatMethodV>(t, "CallStaticFloatMethodV");
  fill<&Table::CallStaticFloatMethodA>(t, "CallStaticFloatMethodA");
  fill<&Table::CallStaticDoubleMethod>(t, "CallStaticDoubleMethod");
  fill<&Table::CallStaticDoubleMethodV>(t, "CallStaticDoubleMethodV");
  fill<&Table::CallStaticDoubleMethodA>(t, "CallStaticDoubleMethodA");
  fill<&Table::CallStaticVoidMethod>(t, "CallStaticVoidMethod");
  fill<&Table::CallStaticVoidMethodV>(t, "CallStaticVoidMethodV");
  fill<&Table::CallStaticVoidMethodA>(t, "CallStaticVoidMethodA");
}

void fillNonvirtualCalls(Table& t) {
  fill<&Table::CallNonvirtualObjectMethod>(t, "CallNonvirtualObjectMethod");
  fill<&Table::CallNonvirtualObjectMethodV>(t, "CallNonvirtualObjectMethodV");
  fill<&Table::CallNonvirtualObjectMethodA>(t, "CallNonvirtualObjectMethodA");
  fill<&Table::CallNonvirtualBooleanMethod>(t, "CallNonvirtualBooleanMethod");
  fill<&Table::CallNonvirtualBooleanMethodV>(t, "CallNonvirtualBooleanMethodV");
  fill<&Table::CallNonvirtualBooleanMethodA>(t, "CallNonvirtualBooleanMethodA");
  fill<&Table::CallNonvirtualByteMethod>(t, "CallNonvirtualByteMethod");
  fill<&Table::CallNonvirtualByteMethodV>(t, "CallNonvirtualByteMethodV");
  fill<&Table::CallNonvirtualByteMethodA>(t, "CallNonvirtualByteMethodA");
  fill<&Table::CallNonvirtualCharMethod>(t, "CallNonvirtualCharMethod");
  fill<&Table::CallNonvirtualCharMethodV>(t, "CallNonvirtualCharMethodV");
  fill<&Table::CallNonvirtualCharMethodA>(t, "CallNonvirtualCharMethodA");
  fill<&Table::CallNonvirtualShortMethod>(t, "CallNonvirtualShortMethod");
  fill<&Table::CallNonvirtualShortMethodV>(t, "CallNonvirtualShortMethodV");
  fill<&Table::CallNonvirtualShortMethodA>(t, "CallNonvirtualShortMethodA");
  fill<&Table::CallNonvirtualIntMethod>(t, "CallNonvirtualIntMethod");
  fill<&Table::CallNonvirtualIntMethodV>(t, "CallNonvirtualIntMethodV");
  fill<&Table::CallNonvirtualIntMethodA>(t, "CallNonvirtualIntMethodA");
  fill<&Table::CallNonvirtualLongMethod>(t, "CallNonvirtualLongMethod");
  fill<&Table::CallNonvirtualLongMethodV>(t, "CallNonvirtualLongMethodV");
  fill<&Table::CallNonvirtualLongMethodA>(t, "CallNonvirtualLongMethodA");
  fill<&Table::CallNonvirtualFloatMethod>(t, "CallNonvirtualFloatMethod");
  fill<&Table::CallNonvirtualFloatMethodV>(t, "CallNonvirtualFloatMethodV");
  fill<&Table::CallNonvirtualFloatMethodA>(t, "CallNonvirtualFloatMethodA");
  fill<&Table::CallNonvirtualDoubleMethod>(t, "CallNonvirtualDoubleMethod");
  fill<&Table::CallNonvirtualDoubleMethodV>(t, "CallNonvirtualDoubleMethodV");
  fill<&Table::CallNonvirtualDoubleMethodA>(t, "CallNonvirtualDoubleMethodA");
  fill<&Table::CallNonvirtualVoidMethod>(t, "CallNonvirtualVoidMethod");
  fill<&Table::CallNonvirtualVoidMethodV>(t, "CallNonvirtualVoidMethodV");
  fill<&Table::CallNonvirtualVoidMethodA>(t, "CallNonvirtualVoidMethodA");
}

void fillCalls(Table& t) {
  fill<&Table::CallObjectMethod>(t, "CallObjectMethod");
  fill<&Table::CallObjectMethodV>(t, "CallObjectMethodV");
  fill<&Table::CallObjectMethodA>(t, "CallObjectMethodA");
  fill<&Table::CallBooleanMethod>(t, "CallBooleanMethod");
  fill<&Table::CallBooleanMethodV>(t, "CallBooleanMethodV");
  fill<&Table::CallBooleanMethodA>(t, "CallBooleanMethodA");
  fill<&Table::CallByteMethod>(t, "CallByteMethod");
  fill<&Table::CallByteMethodV>(t, "CallByteMethodV");
  fill<&Table::CallByteMethodA>(t, "CallByteMethodA");
  fill<&Table::CallCharMethod>(t, "CallCharMethod");
  fill<&Table::CallCharMethodV>(t, "CallCharMethodV");
  fill<&Table::CallCharMethodA>(t, "CallCharMethodA");
  fill<&Table::CallShortMethod>(t, "CallShortMethod");
  fill<&Table::CallShortMethodV>(t, "CallShortMethodV");
  fill<&Table::CallShortMethodA>(t, "CallShortMethodA");
  fill<&Table::CallIntMethod>(t, "CallIntMethod");
  fill<&Table::CallIntMethodV>(t, "CallIntMethodV");
  fill<&Table::CallIntMethodA>(t, "CallIntMethodA");
  fill<&Table::CallLongMethod>(t, "CallLongMethod");
  fill<&Table::CallLongMethodV>(t, "CallLongMethodV");
  fill<&Table::CallLongMethodA>(t, "CallLongMethodA");
  fill<&Table::CallFloatMethod>(t, "CallFloatMethod");
  fill<&Table::CallFloatMethodV>(t, "CallFloatMethodV");
  fill<&Table::CallFloatMethodA>(t, "CallFloatMethodA");
  fill<&Table::CallDoubleMethod>(t, "CallDoubleMethod");
  fill<&Table::CallDoubleMethodV>(t, "CallDoubleMethodV");
  fill<&Table::CallDoubleMethodA>(t, "CallDoubleMethodA");
  fill<&Table::CallVoidMethod>(t, "CallVoidMethod");
  fill<&Table::CallVoidMethodV>(t, "CallVoidMethodV");
  fill<&Table::CallVoidMethodA>(t, "CallVoidMethodA");
}

void fillFields(Table& t) {
  fill<&Table::FromReflectedField>(t, "FromReflectedField");
  fill<&Table::ToReflectedField>(t, "ToReflectedField");
  fill<&Table::GetObjectField>(t, "GetObjectField");
  fill<&Table::GetBooleanField>(t, "GetBooleanField");
  fill<&Table::GetByteField>(t, "GetByteField");
  fill<&Table::GetCharField>(t, "GetCharField");
  fill<&Table::GetShortField>(t, "GetShortField");
  fill<&Table::GetIntField>(t, "GetIntField");
  fill<&Table::GetLongField>(t, "GetLongField");
  fill<&Table::GetFloatField>(t, "GetFloatField");
  fill<&Table::GetDoubleField>(t, "GetDoubleField");
  fill<&Table::SetObjectField>(t, "SetObjectField");
  fill<&Table::SetBooleanField>(t, "SetBooleanField");
  fill<&Table::SetByteField>(t, "SetByteField");
  fill<&Table::SetCharField>(t, "SetCharField");
  fill<&Table::SetShortField>(t, "SetShortField");
  fill<&Table::SetIntField>(t, "SetIntField");
  fill<&Table::SetLongField>(t, "SetLongField");
  fill<&Table::SetFloatField>(t, "SetFloatField");
  fill<&Table::SetDoubleField>(t, "SetDoubleField");
  fill<&Table::GetStaticObjectField>(t, "GetStaticObjectField");
  fill<&Table::GetStaticBooleanField>(t, "GetStaticBooleanField");
  fill<&Table::GetStaticByteField>(t, "GetStaticByteField");
  fill<&Table::GetStaticCharField>(t, "GetStaticCharField");
  fill<&Table::GetStaticShortField>(t, "GetStaticShortField");
  fill<&Table::GetStaticIntField>(t, "GetStaticIntField");
  fill<&Table::GetStaticLongField>(t, "GetStaticLongField");
  fill<&Table::GetStaticFloatField>(t, "GetStaticFloatField");
  fill<&Table::GetStaticDoubleField>(t, "GetStaticDoubleField");
  fill<&Table::SetStaticObjectField>(t, "SetStaticObjectField");
  fill<&Table::SetStaticBooleanField>(t, "SetStaticBooleanField");
  fill<&Table::SetStaticByteField>(t, "SetStaticByteField");
  fill<&Table::SetStaticCharField>(t, "SetStaticCharField");
  fill<&Table::SetStaticShortField>(t, "SetStaticShortField");
  fill<&Table::SetStaticIntField>(t, "SetStaticIntField");
  fill<&Table::SetStaticLongField>(t, "SetStaticLongField");
  fill<&Table::SetStaticFloatField>(t, "SetStaticFloatField");
  fill<&Table::SetStaticDoubleField>(t, "SetStaticDoubleField");
}

void fillArrays(Table& t) {
  fill<&Table::GetArrayLength>(t, "GetArrayLength");
  fill<&Table::NewObjectArray>(t, "NewObjectArray");
  fill<&Table::GetObjectArrayElement>(t, "GetObjectArrayElement");
  fill<&Table::SetObjectArrayElement>(t, "SetObjectArrayElement");
  fill<&Table::NewBooleanArray>(t, "NewBooleanArray");
  fill<&Table::NewByteArray>(t, "NewByteArray");
  fill<&Table::NewCharArray>(t, "NewCharArray");
  fill<&Table::NewShortArray>(t, "NewShortArray");
  fill<&Table::NewIntArray>(t, "NewIntArray");
  fill<&Table::NewLongArray>(t, "NewLongArray");
  fill<&Table::NewFloatArray>(t, "NewFloatArray");
  fill<&Table::NewDoubleArray>(t, "NewDoubleArray");
  fill<&Table::GetBooleanArrayElements>(t, "GetBooleanArrayElements");
  fill<&Table::GetByteArrayElements>(t, "GetByteArrayElements");
  fill<&Table::GetCharArrayElements>(t, "GetCharArrayElements");
  fill<&Table::GetShortArrayElements>(t, "GetShortArrayElements");
  fill<&Table::GetIntArrayElements>(t, "GetIntArrayElements");
  fill<&Table::GetLongArrayElements>(t, "GetLongArrayElements");
  fill<&Table::GetFloatArrayElements>(t, "GetFloatArrayElements");
  fill<&Table::GetDoubleArrayElements>(t, "GetDoubleArrayElements");
  fill<&Table::ReleaseBooleanArrayElements>(t, "ReleaseBooleanArrayElements");
  fill<&Table::ReleaseByteArrayElements>(t, "ReleaseByteArrayElements");
  fill<&Table::ReleaseCharArrayElements>(t, "ReleaseCharArrayElements");
  fill<&Table::ReleaseShortArrayElements>(t, "ReleaseShortArrayElements");
  fill<&Table::ReleaseIntArrayElements>(t, "ReleaseIntArrayElements");
  fill<&Table::ReleaseLongArrayElements>(t, "ReleaseLongArrayElements");
  fill<&Table::ReleaseFloatArrayElements>(t, "ReleaseFloatArrayElements");
  fill<&Table::ReleaseDoubleArrayElements>(t, "ReleaseDoubleArrayElements");
  fill<&Table::GetBooleanArrayRegion>(t, "GetBooleanArrayRegion");
  fill<&Table::GetByteArrayRegion>(t, "GetByteArrayRegion");
  fill<&Table::GetCharArrayRegion>(t, "GetCharArrayRegion");
  fill<&Table::GetShortArrayRegion>(t, "GetShortArrayRegion");
  fill<&Table::GetIntArrayRegion>(t, "GetIntArrayRegion");
  fill<&Table::GetLongArrayRegion>(t, "GetLongArrayRegion");
  fill<&Table::GetFloatArrayRegion>(t, "GetFloatArrayRegion");
  fill<&Table::GetDoubleArrayRegion>(t, "GetDoubleArrayRegion");
  fill<&Table::SetBooleanArrayRegion>(t, "SetBooleanArrayRegion");
  fill<&Table::SetByteArrayRegion>(t, "SetByteArrayRegion");
  fill<&Table::SetCharArrayRegion>(t, "SetCharArrayRegion");
  fill<&Table::SetShortArrayRegion>(t, "SetShortArrayRegion");
  fill<&Table::SetIntArrayRegion>(t, "SetIntArrayRegion");
  fill<&Table::SetLongArrayRegion>(t, "SetLongArrayRegion");
  fill<&Table::SetFloatArrayRegion>(t, "SetFloatArrayRegion");
  fill<&Table::SetDoubleArrayRegion>(t, "SetDoubleArrayRegion");
  fill<&Table::GetPrimitiveArrayCritical>(t, "GetPrimitiveArrayCritical");
  fill<&Table::ReleasePrimitiveArrayCritical>(t, "ReleasePrimitiveArrayCritical");
}

void fillStrings(Table& t) {
  fill<&Table::NewString>(t, "NewString");
  fill<&Table::GetStringLength>(t, "GetStringLength");
  fill<&Table::GetStringChars>(t, "GetStringChars");
  fill<&Table::ReleaseStringChars>(t, "ReleaseStringChars");
  fill<&Table::NewStringUTF>(t, "NewStringUTF");
  fill<&Table::GetStringUTFLength>(t, "GetStringUTFLength");
  fill<&Table::GetStringUTFChars>(t, "GetStringUTFChars");
  fill<&Table::ReleaseStringUTFChars>(t, "ReleaseStringUTFChars");
  fill<&Table::GetStringRegion>(t, "GetStringRegion");
  fill<&Table::GetStringUTFRegion>(t, "GetStringUTFRegion");
  fill<&Table::GetStringCritical>(t, "GetStringCritical");
  fill<&Table::ReleaseStringCritical>(t, "ReleaseStringCritical");
}

void fillOthers(Table& t) {
  fill<&Table::GetVersion>(t, "GetVersion");
  fill<&Table::DefineClass>(t, "DefineClass");
  fill<&Table::FindClass>(t, "FindClass");
  fill<&Table::FromReflectedMethod>(t, "FromReflectedMethod");
  fill<&Table::ToReflectedMethod>(t, "ToReflectedMethod");
  fill<&Table::GetSuperclass>(t, "GetSuperclass");
  fill<&Table::IsAssignableFrom>(t, "IsAssignableFrom");
  fill<&Table::Throw>(t, "Throw");
  fill<&Table::ThrowNew>(t, "ThrowNew");
  fill<&Table::ExceptionOccurred>(t, "ExceptionOccurred");
  fill<&Table::ExceptionDescribe>(t, "ExceptionDescribe");
  fill<&Table::ExceptionClear>(t, "ExceptionClear");
  fill<&Table::FatalError>(t, "FatalError");
  fill<&Table::PushLocalFrame>(t, "PushLocalFrame");
  fill<&Table::PopLocalFrame>(t, "PopLocalFrame");
  fill<&Table::NewGlobalRef>(t, "NewGlobalRef");
  fill<&Table::DeleteGlobalRef>(t, "DeleteGlobalRef");
  fill<&Table::DeleteLocalRef>(t, "DeleteLocalRef");
  fill<&Table::IsSameObject>(t, "IsSameObject");
  fill<&Table::NewLocalRef>(t, "NewLocalRef");
  fill<&Table::EnsureLocalCapacity>(t, "EnsureLocalCapacity");
  fill<&Table::AllocObject>(t, "AllocObject");
  fill<&Table::NewObject>(t, "NewObject");
  fill<&Table::NewObjectV>(t, "NewObjectV");
  fill<&Table::NewObjectA>(t, "NewObjectA");
  fill<&Table::GetObjectClass>(t, "GetObjectClass");
  fill<&Table::IsInstanceOf>(t, "IsInstanceOf");
  fill<&Table::GetMethodID>(t, "GetMethodID");
  fill<&Table::GetFieldID>(t, "GetFieldID");
  fill<&Table::GetStaticMethodID>(t, "GetStaticMethodID");
  fill<&Table::GetStaticFieldID>(t, "GetStaticFieldID");
  fill<&Table::RegisterNatives>(t, "RegisterNatives");
  fill<&Table::UnregisterNatives>(t, "UnregisterNatives");
  fill<&Table::MonitorEnter>(t, "MonitorEnter");
  fill<&Table::MonitorExit>(t, "MonitorExit");
  fill<&Table::GetJavaVM>(t, "GetJavaVM");
  fill<&Table::NewWeakGlobalRef>(t, "NewWeakGlobalRef");
  fill<&Table::DeleteWeakGlobalRef>(t, "DeleteWeakGlobalRef");
  fill<&Table::ExceptionCheck>(t, "ExceptionCheck");
  fill<&Table::NewDirectByteBuffer>(t, "NewDirectByteBuffer");
  fill<&Table::GetDirectBufferAddress>(t, "GetDirectBufferAddress");
  fill<&Table::GetDirectBufferCapacity>(t, "GetDirectBufferCapacity");
  fill<&Table::GetObjectRefType>(t, "GetObjectRefType");
  fill<&Table::GetModule>(t, "GetModule");
}

// A slot that only a newer jni.h than the list above knows.
void* JNICALL newerSlot(JNIEnv*) {
  report("newer than this list");
  return nullptr;
}

// Only the first four entries of the table are reserved and stay null.
void fillNewerSlots(Table& table) {
  constexpr std::size_t kReserved = 4;
  auto* const entries = reinterpret_cast<void**>(&table);
  for (std::size_t i = kReserved; i < sizeof(Table) / sizeof(void*); ++i) {
    if (entries[i] == nullptr) entries[i] = reinterpret_cast<void*>(newerSlot);
  }
}

}  // namespace

void addUnscriptedSlots(JNINativeInterface_& table) {
  fillStaticCalls(table);
  fillNonvirtualCalls(table);
  fillCalls(table);
  fillFields(table);
  fillArrays(table);
  fillStrings(table);
  fillOthers(table);
  fillNewerSlots(table);
}

}  // namespace fakejvm
