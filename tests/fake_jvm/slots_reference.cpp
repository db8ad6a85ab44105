// SPDX-License-Identifier: MIT
// References and local frames.
#include <algorithm>

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {
namespace {

constexpr const char* kNoMemory = "java/lang/OutOfMemoryError";

jobject JNICALL newGlobalRef(JNIEnv* env, jobject reference) {
  Entry call(env, "NewGlobalRef");
  const ObjectRef object = call.object(reference);
  call.log(displayName(object));
  return call.failsQuietly() ? nullptr : call.machine.references.addGlobal(object);
}

void JNICALL deleteGlobalRef(JNIEnv* env, jobject reference) {
  Entry call(env, "DeleteGlobalRef", PendingRule::kAllowed);
  References& references = call.machine.references;
  const References::Entry* entry = references.find(reference);
  if (reference == nullptr) {
    call.log("null");
  } else if (entry == nullptr) {
    call.log(references.deadName(reference));
    call.problem("dead reference: " + references.epitaph(reference));
  } else {
    const std::string name = displayName(entry->object);
    const bool global = entry->thread == 0;
    call.log(name);
    if (!global) call.problem("local reference: " + name);
    if (global) references.remove(reference, "deleted global reference");
  }
}

jobject JNICALL newLocalRef(JNIEnv* env, jobject reference) {
  Entry call(env, "NewLocalRef");
  const ObjectRef object = call.object(reference);
  call.log(displayName(object));
  return call.failsQuietly() ? nullptr : call.local(object);
}

void JNICALL deleteLocalRef(JNIEnv* env, jobject reference) {
  Entry call(env, "DeleteLocalRef", PendingRule::kAllowed);
  const ObjectRef object = call.object(reference);
  call.log(displayName(object));
  call.problem("local references are left to the virtual machine, but deleted: " +
               displayName(object));
  for (Frame& frame : call.thread->frames) std::erase(frame.locals, reference);
  call.machine.references.remove(reference, "deleted local reference");
}

jboolean JNICALL isSameObject(JNIEnv* env, jobject left, jobject right) {
  Entry call(env, "IsSameObject", PendingRule::kAllowed);
  const ObjectRef first = call.object(left);
  const ObjectRef second = call.object(right);
  const std::string firstName = displayName(first);
  call.log(firstName + " " + displayName(second));
  return first == second ? JNI_TRUE : JNI_FALSE;
}

jint JNICALL pushLocalFrame(JNIEnv* env, jint capacity) {
  Entry call(env, "PushLocalFrame", PendingRule::kAllowed);
  call.log(std::to_string(capacity));
  if (call.fails(kNoMemory)) return JNI_ENOMEM;
  call.thread->frames.push_back({Frame::Kind::kPushed, {}, static_cast<std::size_t>(capacity)});
  return JNI_OK;
}

jobject JNICALL popLocalFrame(JNIEnv* env, jobject result) {
  Entry call(env, "PopLocalFrame", PendingRule::kAllowed);
  const ObjectRef object = call.object(result);
  call.log(result == nullptr ? std::string() : displayName(object));
  std::vector<Frame>& frames = call.thread->frames;
  if (frames.back().kind != Frame::Kind::kPushed) {
    call.problem("no frame was pushed");
    return nullptr;
  }
  call.machine.references.removeAll(frames.back(), "its frame was popped");
  frames.pop_back();
  return call.local(object);
}

jint JNICALL ensureLocalCapacity(JNIEnv* env, jint capacity) {
  Entry call(env, "EnsureLocalCapacity");
  call.log(std::to_string(capacity));
  return call.fails(kNoMemory) ? JNI_ENOMEM : JNI_OK;
}

}  // namespace

void addReferenceSlots(JNINativeInterface_& table) {
  table.NewGlobalRef = newGlobalRef;
  table.DeleteGlobalRef = deleteGlobalRef;
  table.NewLocalRef = newLocalRef;
  table.DeleteLocalRef = deleteLocalRef;
  table.IsSameObject = isSameObject;
  table.PushLocalFrame = pushLocalFrame;
  table.PopLocalFrame = popLocalFrame;
  table.EnsureLocalCapacity = ensureLocalCapacity;
}

}  // namespace fakejvm
