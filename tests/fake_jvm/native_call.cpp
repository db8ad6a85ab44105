// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/native_call.h"

#include <algorithm>

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/entry.h"
#include "tests/fake_jvm/java_call.h"

namespace fakejvm {
namespace {

using Raw = std::vector<jvalue>;

// Calls an entry point of the six shapes that the maker's callback class has. False for another
// shape: there is no portable way to call that.
bool dispatch(const Native& native, JNIEnv* env, jobject self, const Raw& a, jvalue& result) {
  const std::string& signature = native.signature;
  if (signature == "(IJ)V") {
    reinterpret_cast<void(JNICALL*)(JNIEnv*, jobject, jint, jlong)>(native.entry)(env, self, a[0].i,
                                                                                  a[1].j);
  } else if (signature == "(IIIJ)V") {
    reinterpret_cast<void(JNICALL*)(JNIEnv*, jobject, jint, jint, jint, jlong)>(native.entry)(
        env, self, a[0].i, a[1].i, a[2].i, a[3].j);
  } else if (signature == "(J)[D" || signature == "(J)Ljava/lang/String;") {
    result.l = reinterpret_cast<jobject(JNICALL*)(JNIEnv*, jobject, jlong)>(native.entry)(env, self,
                                                                                          a[0].j);
  } else if (signature == "(Ljava/util/List;J)Z") {
    result.z = reinterpret_cast<jboolean(JNICALL*)(JNIEnv*, jobject, jobject, jlong)>(native.entry)(
        env, self, a[0].l, a[1].j);
  } else if (signature == "(J)I") {
    result.i =
        reinterpret_cast<jint(JNICALL*)(JNIEnv*, jobject, jlong)>(native.entry)(env, self, a[0].j);
  } else {
    return false;
  }
  return true;
}

// A call from Java into native code; not a JNI call, so neither numbered nor checked as one.
class Transition {
 public:
  Transition(Machine& fake, ThreadState& caller, const Native& target)
      : machine(fake), thread(caller), native(target) {}

  Raw enter(const std::vector<Value>& args) {
    note("enter " + native.name + argumentsText(args));
    thread.frames.push_back({Frame::Kind::kNative, {}});
    depth = thread.frames.size();
    Raw raw;
    const Signature signature = parseSignature(native.signature);
    for (std::size_t i = 0; i < signature.parameters.size(); ++i) {
      raw.push_back(toJava(signature.parameters[i], i < args.size() ? args[i] : Value()));
    }
    return raw;
  }

  void run(const Raw& raw, std::unique_lock<std::mutex>& lock) {
    const auto self = std::make_shared<Object>(native.className, "callbacks");
    const jobject reference = machine.addLocal(thread, self);
    bool called = true, foreign = false;
    ++thread.javaDepth;
    lock.unlock();
    try {
      called = dispatch(native, &thread, reference, raw, result);
    } catch (...) {
      foreign = true;
    }
    lock.lock();
    --thread.javaDepth;
    if (!called) machine.problem("no way to call " + native.name + native.signature);
    if (foreign) machine.problem("C++ exception left the native method " + native.name);
  }

  Value leave() {
    note("leave " + native.name);
    const Value value = fromJava(parseSignature(native.signature).result);
    if (thread.frames.size() != depth) {
      machine.problem("unbalanced local frames after " + native.name);
    }
    while (thread.frames.size() >= depth) {
      machine.references.removeAll(thread.frames.back(), "its native method has returned");
      thread.frames.pop_back();
    }
    thread.unchecked.clear();
    return value;
  }

 private:
  void note(const std::string& text) { machine.recorder.lines.push_back({thread.number, text}); }

  jvalue toJava(char type, const Value& value) {
    jvalue raw{};
    if (type == 'L' || type == '[') {
      raw.l = machine.addLocal(thread, value.asObject());
    } else if (type == 'J') {
      raw.j = value.asLong();
    } else {
      raw.i = value.asInt();
    }
    return raw;
  }

  Value fromJava(char type) {
    if (type == 'V') return {};
    if (type == 'Z') return result.z != JNI_FALSE;
    if (type == 'I') return static_cast<int32_t>(result.i);
    if (result.l == nullptr) return nullptr;
    const References::Entry* entry = machine.references.find(result.l);
    if (entry == nullptr) {
      machine.problem(native.name +
                      " returned a dead reference: " + machine.references.epitaph(result.l));
      return nullptr;
    }
    return entry->object;
  }

  Machine& machine;
  ThreadState& thread;
  const Native native;
  jvalue result{};
  std::size_t depth = 0;
};

}  // namespace

Value callNativeMethod(Machine& machine, const std::string& method,
                       const std::vector<Value>& args) {
  std::unique_lock<std::mutex> lock(machine.mutex);
  const auto found = std::find_if(machine.natives.begin(), machine.natives.end(),
                                  [&](const Native& native) { return native.name == method; });
  ThreadState* thread = machine.current();
  if (found == machine.natives.end()) {
    throw JavaThrow("java/lang/UnsatisfiedLinkError", method);
  }
  if (thread == nullptr) {
    machine.problem("native method " + method + " called on a thread that is not attached");
    return {};
  }
  Transition transition(machine, *thread, *found);
  const Raw raw = transition.enter(args);
  transition.run(raw, lock);
  const Value value = transition.leave();
  if (thread->pending) throw JavaThrow(std::exchange(thread->pending, nullptr));
  return value;
}

}  // namespace fakejvm
