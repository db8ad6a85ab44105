// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_SLOTS_H_
#define L5KOV_TESTS_FAKE_JVM_SLOTS_H_

#include <jni.h>

namespace fakejvm {

// The two tables that libl5kov calls through. Each slot that it may use is implemented; every
// other one records "unscripted slot: <name>" as a problem and returns 0.
const JNINativeInterface_& functionTable();
const JNIInvokeInterface_& invocationTable();

// Each fills the slots of one subject (slots_<subject>.cpp).
void addClassSlots(JNINativeInterface_& table);
void addReferenceSlots(JNINativeInterface_& table);
void addExceptionSlots(JNINativeInterface_& table);
void addStringSlots(JNINativeInterface_& table);
void addArraySlots(JNINativeInterface_& table);
void addCallSlots(JNINativeInterface_& table);
void addNativeSlots(JNINativeInterface_& table);
// Fills all of them with their unscripted form (unscripted.cpp).
void addUnscriptedSlots(JNINativeInterface_& table);

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_SLOTS_H_
