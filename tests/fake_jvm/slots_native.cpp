// SPDX-License-Identifier: MIT
// Registration of native methods, and the way to the virtual machine.
#include <algorithm>

#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

constexpr const char* kNoMethod = "java/lang/NoSuchMethodError";

// "Method pkg.Callbacks.run()V not found"
std::string notFound(std::string className, const JNINativeMethod& method) {
  std::replace(className.begin(), className.end(), '/', '.');
  return "Method " + className + "." + method.name + method.signature + " not found";
}

jint JNICALL registerNatives(JNIEnv* env, jclass clazz, const JNINativeMethod* methods,
                             jint count) {
  Entry call(env, "RegisterNatives");
  const auto className = call.className(clazz);
  call.log(className.value_or("null") + " " + std::to_string(count));
  if (!className) return JNI_ERR;
  if (call.fails(kNoMethod, count > 0 ? notFound(*className, methods[0]) : "")) return JNI_ERR;
  for (jint i = 0; i < count; ++i) {
    const JNINativeMethod& method = methods[i];
    if (call.machine.classes.isMissing(*className, method.name, method.signature)) {
      call.raise(kNoMethod, notFound(*className, method));
      return JNI_ERR;
    }
    if (method.fnPtr == nullptr) call.problem(std::string("null entry: ") + method.name);
    std::erase_if(call.machine.natives, [&](const Native& old) {
      return old.className == *className && old.name == method.name;
    });
    call.machine.natives.push_back({*className, method.name, method.signature, method.fnPtr});
  }
  return JNI_OK;
}

jint JNICALL unregisterNatives(JNIEnv* env, jclass clazz) {
  Entry call(env, "UnregisterNatives");
  const auto className = call.className(clazz);
  call.log(className.value_or("null"));
  if (!className) return JNI_ERR;
  std::erase_if(call.machine.natives,
                [&](const Native& native) { return native.className == *className; });
  return JNI_OK;
}

jint JNICALL getJavaVm(JNIEnv* env, JavaVM** vm) {
  Entry call(env, "GetJavaVM");
  call.log();
  *vm = &call.machine.vm;
  return JNI_OK;
}

}  // namespace

void addNativeSlots(JNINativeInterface_& table) {
  table.RegisterNatives = registerNatives;
  table.UnregisterNatives = unregisterNatives;
  table.GetJavaVM = getJavaVm;
}

}  // namespace fakejvm
