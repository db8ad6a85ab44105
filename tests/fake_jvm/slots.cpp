// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

JNINativeInterface_ makeFunctionTable() {
  JNINativeInterface_ table{};
  addUnscriptedSlots(table);
  addClassSlots(table);
  addReferenceSlots(table);
  addExceptionSlots(table);
  addStringSlots(table);
  addArraySlots(table);
  addCallSlots(table);
  addNativeSlots(table);
  return table;
}

}  // namespace

const JNINativeInterface_& functionTable() {
  static const JNINativeInterface_ table = makeFunctionTable();
  return table;
}

}  // namespace fakejvm
