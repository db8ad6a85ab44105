// SPDX-License-Identifier: MIT
// The invocation interface and the two exports that libl5kov looks for.
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

jint attach(const char* slot, void** env) {
  Entry call(slot);
  call.log();
  if (!call.machine.created) call.problem("no virtual machine");
  if (call.failsQuietly()) return JNI_ERR;
  *env = static_cast<JNIEnv*>(call.machine.attach());
  return JNI_OK;
}

jint JNICALL attachCurrentThread(JavaVM*, void** env, void*) {
  return attach("AttachCurrentThread", env);
}

jint JNICALL attachCurrentThreadAsDaemon(JavaVM*, void** env, void*) {
  return attach("AttachCurrentThreadAsDaemon", env);
}

jint JNICALL detachCurrentThread(JavaVM*) {
  Entry call("DetachCurrentThread");
  call.log();
  ThreadState* thread = call.machine.current();
  if (call.failsQuietly()) return JNI_ERR;
  if (thread == nullptr) return JNI_OK;
  if (thread->javaDepth > 0) return JNI_ERR;  // Java frames on its stack, as in HotSpot
  if (thread->frames.size() > 1) call.problem("local frames were pushed and not popped");
  call.machine.detach(*thread, "its thread has detached");
  return JNI_OK;
}

jint JNICALL destroyJavaVm(JavaVM*) {
  Entry call("DestroyJavaVM");
  call.log();
  call.problem("the virtual machine lives until the process ends");
  return JNI_ERR;
}

jint JNICALL getEnv(JavaVM*, void** env, jint) {
  Entry call("GetEnv");
  call.log();
  ThreadState* thread = call.machine.current();
  const bool answered = thread != nullptr && !call.failsQuietly();
  *env = answered ? static_cast<JNIEnv*>(thread) : nullptr;
  return answered ? JNI_OK : JNI_EDETACHED;
}

JNIInvokeInterface_ makeInvocationTable() {
  JNIInvokeInterface_ table{};
  table.DestroyJavaVM = destroyJavaVm;
  table.AttachCurrentThread = attachCurrentThread;
  table.DetachCurrentThread = detachCurrentThread;
  table.GetEnv = getEnv;
  table.AttachCurrentThreadAsDaemon = attachCurrentThreadAsDaemon;
  return table;
}

VmArguments copyArguments(const JavaVMInitArgs& raw) {
  VmArguments copy;
  copy.version = raw.version;
  copy.ignoreUnrecognized = raw.ignoreUnrecognized != JNI_FALSE;
  for (jint i = 0; i < raw.nOptions; ++i) {
    copy.options.emplace_back(raw.options[i].optionString);
    copy.extraInfo.push_back(raw.options[i].extraInfo);
  }
  return copy;
}

}  // namespace

const JNIInvokeInterface_& invocationTable() {
  static const JNIInvokeInterface_ table = makeInvocationTable();
  return table;
}

}  // namespace fakejvm

extern "C" {

JNIEXPORT jint JNICALL JNI_GetCreatedJavaVMs(JavaVM** buffer, jsize size, jsize* count) {
  fakejvm::Entry call("JNI_GetCreatedJavaVMs");
  call.log();
  if (call.failsQuietly()) return JNI_ERR;
  *count = call.machine.created ? 1 : 0;
  if (call.machine.created && size > 0) buffer[0] = &call.machine.vm;
  return call.machine.createdVmsResult.value_or(JNI_OK);
}

JNIEXPORT jint JNICALL JNI_CreateJavaVM(JavaVM** vm, void** env, void* arguments) {
  fakejvm::Entry call("JNI_CreateJavaVM");
  call.log();
  fakejvm::Machine& machine = call.machine;
  machine.vmArguments = fakejvm::copyArguments(*static_cast<JavaVMInitArgs*>(arguments));
  if (call.failsQuietly()) return JNI_ERR;
  if (machine.createResult.value_or(JNI_OK) != JNI_OK) return *machine.createResult;
  if (machine.created) return JNI_EEXIST;
  machine.created = true;
  *vm = &machine.vm;
  *env = static_cast<JNIEnv*>(machine.attach());
  return JNI_OK;
}
}
