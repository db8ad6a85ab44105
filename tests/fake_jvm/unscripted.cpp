// SPDX-License-Identifier: MIT
// Every slot of the function table in its unscripted form: it names itself and returns 0.
#include "tests/fake_jvm/machine.h"
#include "tests/fake_jvm/slot_name.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

using Table = JNINativeInterface_;

void report(const char* name) {
  Machine& machine = Machine::get();
  const std::lock_guard<std::mutex> guard(machine.mutex);
  machine.problem(std::string("unscripted slot: ") + name);
}

template <SlotName kName, typename R, typename... Args>
struct Unscripted {
  static R JNICALL call(JNIEnv*, Args...) {
    report(kName.text);
    return R();
  }
  static R JNICALL callList(JNIEnv*, Args..., ...) {
    report(kName.text);
    return R();
  }
};

template <SlotName kName, typename R, typename... Args>
void fill(R(JNICALL*& slot)(JNIEnv*, Args...)) {
  slot = Unscripted<kName, R, Args...>::call;
}
template <SlotName kName, typename R, typename... Args>
void fill(R(JNICALL*& slot)(JNIEnv*, Args..., ...)) {
  slot = Unscripted<kName, R, Args...>::callList;
}

void fillStaticCalls(Table& t) {
  fill<"CallStaticObjectMethod">(t.CallStaticObjectMethod);
  fill<"CallStaticObjectMethodV">(t.CallStaticObjectMethodV);
  fill<"CallStaticObjectMethodA">(t.CallStaticObjectMethodA);
  fill<"CallStaticBooleanMethod">(t.CallStaticBooleanMethod);
  fill<"CallStaticBooleanMethodV">(t.CallStaticBooleanMethodV);
  fill<"CallStaticBooleanMethodA">(t.CallStaticBooleanMethodA);
  fill<"CallStaticByteMethod">(t.CallStaticByteMethod);
  fill<"CallStaticByteMethodV">(t.CallStaticByteMethodV);
  fill<"CallStaticByteMethodA">(t.CallStaticByteMethodA);
  fill<"CallStaticCharMethod">(t.CallStaticCharMethod);
  fill<"CallStaticCharMethodV">(t.CallStaticCharMethodV);
  fill<"CallStaticCharMethodA">(t.CallStaticCharMethodA);
  fill<"CallStaticShortMethod">(t.CallStaticShortMethod);
  fill<"CallStaticShortMethodV">(t.CallStaticShortMethodV);
  fill<"CallStaticShortMethodA">(t.CallStaticShortMethodA);
  fill<"CallStaticIntMethod">(t.CallStaticIntMethod);
  fill<"CallStaticIntMethodV">(t.CallStaticIntMethodV);
  fill<"CallStaticIntMethodA">(t.CallStaticIntMethodA);
  fill<"CallStaticLongMethod">(t.CallStaticLongMethod);
  fill<"CallStaticLongMethodV">(t.CallStaticLongMethodV);
  fill<"CallStaticLongMethodA">(t.CallStaticLongMethodA);
  fill<"CallStaticFloatMethod">(t.CallStaticFloatMethod);
  fill<"CallStaticFloatMethodV">(t.CallStaticFloatMethodV);
  fill<"CallStaticFloatMethodA">(t.CallStaticFloatMethodA);
  fill<"CallStaticDoubleMethod">(t.CallStaticDoubleMethod);
  fill<"CallStaticDoubleMethodV">(t.CallStaticDoubleMethodV);
  fill<"CallStaticDoubleMethodA">(t.CallStaticDoubleMethodA);
  fill<"CallStaticVoidMethod">(t.CallStaticVoidMethod);
  fill<"CallStaticVoidMethodV">(t.CallStaticVoidMethodV);
  fill<"CallStaticVoidMethodA">(t.CallStaticVoidMethodA);
}

void fillNonvirtualCalls(Table& t) {
  fill<"CallNonvirtualObjectMethod">(t.CallNonvirtualObjectMethod);
  fill<"CallNonvirtualObjectMethodV">(t.CallNonvirtualObjectMethodV);
  fill<"CallNonvirtualObjectMethodA">(t.CallNonvirtualObjectMethodA);
  fill<"CallNonvirtualBooleanMethod">(t.CallNonvirtualBooleanMethod);
  fill<"CallNonvirtualBooleanMethodV">(t.CallNonvirtualBooleanMethodV);
  fill<"CallNonvirtualBooleanMethodA">(t.CallNonvirtualBooleanMethodA);
  fill<"CallNonvirtualByteMethod">(t.CallNonvirtualByteMethod);
  fill<"CallNonvirtualByteMethodV">(t.CallNonvirtualByteMethodV);
  fill<"CallNonvirtualByteMethodA">(t.CallNonvirtualByteMethodA);
  fill<"CallNonvirtualCharMethod">(t.CallNonvirtualCharMethod);
  fill<"CallNonvirtualCharMethodV">(t.CallNonvirtualCharMethodV);
  fill<"CallNonvirtualCharMethodA">(t.CallNonvirtualCharMethodA);
  fill<"CallNonvirtualShortMethod">(t.CallNonvirtualShortMethod);
  fill<"CallNonvirtualShortMethodV">(t.CallNonvirtualShortMethodV);
  fill<"CallNonvirtualShortMethodA">(t.CallNonvirtualShortMethodA);
  fill<"CallNonvirtualIntMethod">(t.CallNonvirtualIntMethod);
  fill<"CallNonvirtualIntMethodV">(t.CallNonvirtualIntMethodV);
  fill<"CallNonvirtualIntMethodA">(t.CallNonvirtualIntMethodA);
  fill<"CallNonvirtualLongMethod">(t.CallNonvirtualLongMethod);
  fill<"CallNonvirtualLongMethodV">(t.CallNonvirtualLongMethodV);
  fill<"CallNonvirtualLongMethodA">(t.CallNonvirtualLongMethodA);
  fill<"CallNonvirtualFloatMethod">(t.CallNonvirtualFloatMethod);
  fill<"CallNonvirtualFloatMethodV">(t.CallNonvirtualFloatMethodV);
  fill<"CallNonvirtualFloatMethodA">(t.CallNonvirtualFloatMethodA);
  fill<"CallNonvirtualDoubleMethod">(t.CallNonvirtualDoubleMethod);
  fill<"CallNonvirtualDoubleMethodV">(t.CallNonvirtualDoubleMethodV);
  fill<"CallNonvirtualDoubleMethodA">(t.CallNonvirtualDoubleMethodA);
  fill<"CallNonvirtualVoidMethod">(t.CallNonvirtualVoidMethod);
  fill<"CallNonvirtualVoidMethodV">(t.CallNonvirtualVoidMethodV);
  fill<"CallNonvirtualVoidMethodA">(t.CallNonvirtualVoidMethodA);
}

void fillCalls(Table& t) {
  fill<"CallObjectMethod">(t.CallObjectMethod);
  fill<"CallObjectMethodV">(t.CallObjectMethodV);
  fill<"CallObjectMethodA">(t.CallObjectMethodA);
  fill<"CallBooleanMethod">(t.CallBooleanMethod);
  fill<"CallBooleanMethodV">(t.CallBooleanMethodV);
  fill<"CallBooleanMethodA">(t.CallBooleanMethodA);
  fill<"CallByteMethod">(t.CallByteMethod);
  fill<"CallByteMethodV">(t.CallByteMethodV);
  fill<"CallByteMethodA">(t.CallByteMethodA);
  fill<"CallCharMethod">(t.CallCharMethod);
  fill<"CallCharMethodV">(t.CallCharMethodV);
  fill<"CallCharMethodA">(t.CallCharMethodA);
  fill<"CallShortMethod">(t.CallShortMethod);
  fill<"CallShortMethodV">(t.CallShortMethodV);
  fill<"CallShortMethodA">(t.CallShortMethodA);
  fill<"CallIntMethod">(t.CallIntMethod);
  fill<"CallIntMethodV">(t.CallIntMethodV);
  fill<"CallIntMethodA">(t.CallIntMethodA);
  fill<"CallLongMethod">(t.CallLongMethod);
  fill<"CallLongMethodV">(t.CallLongMethodV);
  fill<"CallLongMethodA">(t.CallLongMethodA);
  fill<"CallFloatMethod">(t.CallFloatMethod);
  fill<"CallFloatMethodV">(t.CallFloatMethodV);
  fill<"CallFloatMethodA">(t.CallFloatMethodA);
  fill<"CallDoubleMethod">(t.CallDoubleMethod);
  fill<"CallDoubleMethodV">(t.CallDoubleMethodV);
  fill<"CallDoubleMethodA">(t.CallDoubleMethodA);
  fill<"CallVoidMethod">(t.CallVoidMethod);
  fill<"CallVoidMethodV">(t.CallVoidMethodV);
  fill<"CallVoidMethodA">(t.CallVoidMethodA);
}

void fillFields(Table& t) {
  fill<"FromReflectedField">(t.FromReflectedField);
  fill<"ToReflectedField">(t.ToReflectedField);
  fill<"GetObjectField">(t.GetObjectField);
  fill<"GetBooleanField">(t.GetBooleanField);
  fill<"GetByteField">(t.GetByteField);
  fill<"GetCharField">(t.GetCharField);
  fill<"GetShortField">(t.GetShortField);
  fill<"GetIntField">(t.GetIntField);
  fill<"GetLongField">(t.GetLongField);
  fill<"GetFloatField">(t.GetFloatField);
  fill<"GetDoubleField">(t.GetDoubleField);
  fill<"SetObjectField">(t.SetObjectField);
  fill<"SetBooleanField">(t.SetBooleanField);
  fill<"SetByteField">(t.SetByteField);
  fill<"SetCharField">(t.SetCharField);
  fill<"SetShortField">(t.SetShortField);
  fill<"SetIntField">(t.SetIntField);
  fill<"SetLongField">(t.SetLongField);
  fill<"SetFloatField">(t.SetFloatField);
  fill<"SetDoubleField">(t.SetDoubleField);
  fill<"GetStaticObjectField">(t.GetStaticObjectField);
  fill<"GetStaticBooleanField">(t.GetStaticBooleanField);
  fill<"GetStaticByteField">(t.GetStaticByteField);
  fill<"GetStaticCharField">(t.GetStaticCharField);
  fill<"GetStaticShortField">(t.GetStaticShortField);
  fill<"GetStaticIntField">(t.GetStaticIntField);
  fill<"GetStaticLongField">(t.GetStaticLongField);
  fill<"GetStaticFloatField">(t.GetStaticFloatField);
  fill<"GetStaticDoubleField">(t.GetStaticDoubleField);
  fill<"SetStaticObjectField">(t.SetStaticObjectField);
  fill<"SetStaticBooleanField">(t.SetStaticBooleanField);
  fill<"SetStaticByteField">(t.SetStaticByteField);
  fill<"SetStaticCharField">(t.SetStaticCharField);
  fill<"SetStaticShortField">(t.SetStaticShortField);
  fill<"SetStaticIntField">(t.SetStaticIntField);
  fill<"SetStaticLongField">(t.SetStaticLongField);
  fill<"SetStaticFloatField">(t.SetStaticFloatField);
  fill<"SetStaticDoubleField">(t.SetStaticDoubleField);
}

void fillArrays(Table& t) {
  fill<"GetArrayLength">(t.GetArrayLength);
  fill<"NewObjectArray">(t.NewObjectArray);
  fill<"GetObjectArrayElement">(t.GetObjectArrayElement);
  fill<"SetObjectArrayElement">(t.SetObjectArrayElement);
  fill<"NewBooleanArray">(t.NewBooleanArray);
  fill<"NewByteArray">(t.NewByteArray);
  fill<"NewCharArray">(t.NewCharArray);
  fill<"NewShortArray">(t.NewShortArray);
  fill<"NewIntArray">(t.NewIntArray);
  fill<"NewLongArray">(t.NewLongArray);
  fill<"NewFloatArray">(t.NewFloatArray);
  fill<"NewDoubleArray">(t.NewDoubleArray);
  fill<"GetBooleanArrayElements">(t.GetBooleanArrayElements);
  fill<"GetByteArrayElements">(t.GetByteArrayElements);
  fill<"GetCharArrayElements">(t.GetCharArrayElements);
  fill<"GetShortArrayElements">(t.GetShortArrayElements);
  fill<"GetIntArrayElements">(t.GetIntArrayElements);
  fill<"GetLongArrayElements">(t.GetLongArrayElements);
  fill<"GetFloatArrayElements">(t.GetFloatArrayElements);
  fill<"GetDoubleArrayElements">(t.GetDoubleArrayElements);
  fill<"ReleaseBooleanArrayElements">(t.ReleaseBooleanArrayElements);
  fill<"ReleaseByteArrayElements">(t.ReleaseByteArrayElements);
  fill<"ReleaseCharArrayElements">(t.ReleaseCharArrayElements);
  fill<"ReleaseShortArrayElements">(t.ReleaseShortArrayElements);
  fill<"ReleaseIntArrayElements">(t.ReleaseIntArrayElements);
  fill<"ReleaseLongArrayElements">(t.ReleaseLongArrayElements);
  fill<"ReleaseFloatArrayElements">(t.ReleaseFloatArrayElements);
  fill<"ReleaseDoubleArrayElements">(t.ReleaseDoubleArrayElements);
  fill<"GetBooleanArrayRegion">(t.GetBooleanArrayRegion);
  fill<"GetByteArrayRegion">(t.GetByteArrayRegion);
  fill<"GetCharArrayRegion">(t.GetCharArrayRegion);
  fill<"GetShortArrayRegion">(t.GetShortArrayRegion);
  fill<"GetIntArrayRegion">(t.GetIntArrayRegion);
  fill<"GetLongArrayRegion">(t.GetLongArrayRegion);
  fill<"GetFloatArrayRegion">(t.GetFloatArrayRegion);
  fill<"GetDoubleArrayRegion">(t.GetDoubleArrayRegion);
  fill<"SetBooleanArrayRegion">(t.SetBooleanArrayRegion);
  fill<"SetByteArrayRegion">(t.SetByteArrayRegion);
  fill<"SetCharArrayRegion">(t.SetCharArrayRegion);
  fill<"SetShortArrayRegion">(t.SetShortArrayRegion);
  fill<"SetIntArrayRegion">(t.SetIntArrayRegion);
  fill<"SetLongArrayRegion">(t.SetLongArrayRegion);
  fill<"SetFloatArrayRegion">(t.SetFloatArrayRegion);
  fill<"SetDoubleArrayRegion">(t.SetDoubleArrayRegion);
  fill<"GetPrimitiveArrayCritical">(t.GetPrimitiveArrayCritical);
  fill<"ReleasePrimitiveArrayCritical">(t.ReleasePrimitiveArrayCritical);
}

void fillStrings(Table& t) {
  fill<"NewString">(t.NewString);
  fill<"GetStringLength">(t.GetStringLength);
  fill<"GetStringChars">(t.GetStringChars);
  fill<"ReleaseStringChars">(t.ReleaseStringChars);
  fill<"NewStringUTF">(t.NewStringUTF);
  fill<"GetStringUTFLength">(t.GetStringUTFLength);
  fill<"GetStringUTFChars">(t.GetStringUTFChars);
  fill<"ReleaseStringUTFChars">(t.ReleaseStringUTFChars);
  fill<"GetStringRegion">(t.GetStringRegion);
  fill<"GetStringUTFRegion">(t.GetStringUTFRegion);
  fill<"GetStringCritical">(t.GetStringCritical);
  fill<"ReleaseStringCritical">(t.ReleaseStringCritical);
}

void fillOthers(Table& t) {
  fill<"GetVersion">(t.GetVersion);
  fill<"DefineClass">(t.DefineClass);
  fill<"FindClass">(t.FindClass);
  fill<"FromReflectedMethod">(t.FromReflectedMethod);
  fill<"ToReflectedMethod">(t.ToReflectedMethod);
  fill<"GetSuperclass">(t.GetSuperclass);
  fill<"IsAssignableFrom">(t.IsAssignableFrom);
  fill<"Throw">(t.Throw);
  fill<"ThrowNew">(t.ThrowNew);
  fill<"ExceptionOccurred">(t.ExceptionOccurred);
  fill<"ExceptionDescribe">(t.ExceptionDescribe);
  fill<"ExceptionClear">(t.ExceptionClear);
  fill<"FatalError">(t.FatalError);
  fill<"PushLocalFrame">(t.PushLocalFrame);
  fill<"PopLocalFrame">(t.PopLocalFrame);
  fill<"NewGlobalRef">(t.NewGlobalRef);
  fill<"DeleteGlobalRef">(t.DeleteGlobalRef);
  fill<"DeleteLocalRef">(t.DeleteLocalRef);
  fill<"IsSameObject">(t.IsSameObject);
  fill<"NewLocalRef">(t.NewLocalRef);
  fill<"EnsureLocalCapacity">(t.EnsureLocalCapacity);
  fill<"AllocObject">(t.AllocObject);
  fill<"NewObject">(t.NewObject);
  fill<"NewObjectV">(t.NewObjectV);
  fill<"NewObjectA">(t.NewObjectA);
  fill<"GetObjectClass">(t.GetObjectClass);
  fill<"IsInstanceOf">(t.IsInstanceOf);
  fill<"GetMethodID">(t.GetMethodID);
  fill<"GetFieldID">(t.GetFieldID);
  fill<"GetStaticMethodID">(t.GetStaticMethodID);
  fill<"GetStaticFieldID">(t.GetStaticFieldID);
  fill<"RegisterNatives">(t.RegisterNatives);
  fill<"UnregisterNatives">(t.UnregisterNatives);
  fill<"MonitorEnter">(t.MonitorEnter);
  fill<"MonitorExit">(t.MonitorExit);
  fill<"GetJavaVM">(t.GetJavaVM);
  fill<"NewWeakGlobalRef">(t.NewWeakGlobalRef);
  fill<"DeleteWeakGlobalRef">(t.DeleteWeakGlobalRef);
  fill<"ExceptionCheck">(t.ExceptionCheck);
  fill<"NewDirectByteBuffer">(t.NewDirectByteBuffer);
  fill<"GetDirectBufferAddress">(t.GetDirectBufferAddress);
  fill<"GetDirectBufferCapacity">(t.GetDirectBufferCapacity);
  fill<"GetObjectRefType">(t.GetObjectRefType);
  fill<"GetModule">(t.GetModule);
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
