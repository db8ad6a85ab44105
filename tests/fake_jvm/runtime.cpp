// SPDX-License-Identifier: MIT
// The tests' view of the machine.
#include <utility>

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/instance.h"
#include "tests/fake_jvm/machine.h"
#include "tests/fake_jvm/native_call.h"

namespace fakejvm {
namespace {

template <typename Action>
auto locked(Action action) {
  Machine& machine = Machine::get();
  const std::lock_guard<std::mutex> guard(machine.mutex);
  return action(machine);
}

// For what makes calls fail that else succeed.
template <typename Action>
void disturb(Action action) {
  locked([&](Machine& machine) {
    machine.recorder.disturbed = true;
    action(machine);
  });
}

class MachineRuntime final : public Runtime {
 public:
  void reset() override {
    return locked([](Machine& m) { m.reset(); });
  }
  void forgetVm() override {
    return locked([](Machine& m) { m.forgetVm(); });
  }
  void preCreateVm() override {
    return locked([](Machine& m) { m.created = true; });
  }
  bool vmExists() const override {
    return locked([](Machine& m) { return m.created; });
  }
  void setCreateResult(jint result) override {
    return locked([&](Machine& m) { m.createResult = result; });
  }
  void setCreatedVmsResult(jint result) override {
    return locked([&](Machine& m) { m.createdVmsResult = result; });
  }
  std::optional<VmArguments> vmArguments() const override {
    return locked([](Machine& m) { return m.vmArguments; });
  }
  JavaVM* vm() override { return &Machine::get().vm; }
  JNIEnv* attachThread() override {
    return locked([](Machine& m) -> JNIEnv* { return m.attach(); });
  }
  void detachThread() override {
    return locked([](Machine& m) {
      if (ThreadState* thread = m.current()) m.detach(*thread, "its thread has detached");
    });
  }
  int attachedThreads() const override {
    return locked([](Machine& m) { return m.attachedThreads(); });
  }

  ObjectRef object(const std::string& name, const std::string& className) override {
    return locked([&](Machine& m) {
      ObjectRef& object = m.objects[name];
      if (!object) object = std::make_shared<Object>(className, name);
      return object;
    });
  }
  ObjectRef find(const std::string& name) const override {
    return locked([&](Machine& m) -> ObjectRef {
      const auto found = m.objects.find(name);
      return found == m.objects.end() ? nullptr : found->second;
    });
  }
  ObjectRef classObject(const std::string& className) override {
    return locked([&](Machine& m) { return m.classes.classObject(className); });
  }
  void extends(const std::string& subclass, const std::string& superclass) override {
    return locked([&](Machine& m) { m.classes.extends(subclass, superclass); });
  }
  void script(const ObjectRef& object, const std::string& member, Handler handler) override {
    return locked([&](Machine& m) { m.classes.script(object, member, std::move(handler)); });
  }
  void script(const std::string& className, const std::string& member, Handler handler) override {
    return locked([&](Machine& m) { m.classes.script(className, member, std::move(handler)); });
  }
  void setStaticField(const std::string& className, const std::string& field,
                      Value value) override {
    return locked([&](Machine& m) { m.classes.setStaticField(className, field, value); });
  }
  void missingClass(const std::string& className) override {
    return disturb([&](Machine& m) { m.classes.missingClass(className); });
  }
  void missingMember(const std::string& className, const std::string& member,
                     const std::string& signature) override {
    return disturb([&](Machine& m) { m.classes.missingMember(className, member, signature); });
  }

  jobject local(const ObjectRef& object) override {
    return locked([&](Machine& m) -> jobject {
      ThreadState* thread = m.current();
      if (thread == nullptr) m.problem("local(): this thread is not attached");
      return thread == nullptr ? nullptr : m.addLocal(*thread, object);
    });
  }
  ObjectRef resolve(jobject reference) const override {
    return locked([&](Machine& m) {
      const References::Entry* entry = m.references.find(reference);
      return entry == nullptr ? nullptr : entry->object;
    });
  }

  void throwPending(const std::string& className, std::optional<std::string> message) override {
    return disturb([&](Machine& m) {
      ThreadState* thread = m.current();
      if (thread == nullptr) m.problem("throwPending(): this thread is not attached");
      if (thread != nullptr) thread->pending = m.newThrowable(className, message);
    });
  }
  ObjectRef pendingException() const override {
    return locked([](Machine& m) {
      ThreadState* thread = m.current();
      return thread == nullptr ? nullptr : thread->pending;
    });
  }
  void clearPendingException() override {
    return locked([](Machine& m) {
      if (ThreadState* thread = m.current()) thread->pending = nullptr;
    });
  }

  bool hasNative(const std::string& method) const override {
    return locked([&](Machine& m) {
      for (const Native& native : m.natives) {
        if (native.name == method) return true;
      }
      return false;
    });
  }
  std::vector<std::string> nativeMethods() const override {
    return locked([](Machine& m) {
      std::vector<std::string> names;
      for (const Native& native : m.natives) names.push_back(native.name + native.signature);
      return names;
    });
  }
  Value callNative(const std::string& method, const std::vector<Value>& args) override {
    return callNativeMethod(Machine::get(), method, args);
  }

  int callCount() const override {
    return locked([](Machine& m) { return m.recorder.callCount; });
  }
  void failCall(int number, Fault fault) override {
    return disturb([&](Machine& m) { m.recorder.faults[number] = fault; });
  }
  int faultsApplied() const override {
    return locked([](Machine& m) { return m.recorder.faultsApplied; });
  }
  void onCall(std::function<void(const std::string& line)> hook) override {
    return locked([&](Machine& m) { m.recorder.hook = std::move(hook); });
  }

  std::vector<std::string> log() const override {
    return locked([](Machine& m) { return m.recorder.linesOf(Machine::threadNumber()); });
  }
  std::vector<LogLine> logOfAllThreads() const override {
    return locked([](Machine& m) { return m.recorder.lines; });
  }
  void clearLog() override {
    return locked([](Machine& m) { m.recorder.lines.clear(); });
  }
  std::vector<std::string> problems() const override {
    return locked([](Machine& m) { return m.recorder.problems; });
  }
  std::vector<std::string> takeProblems() override {
    return locked([](Machine& m) { return std::exchange(m.recorder.problems, {}); });
  }
  std::vector<std::string> xcheckWarnings() const override {
    return locked([](Machine& m) { return m.recorder.xcheckWarnings; });
  }
  bool disturbed() const override {
    return locked([](Machine& m) { return m.recorder.disturbed; });
  }

  int liveGlobalRefs() const override { return static_cast<int>(liveGlobalRefNames().size()); }
  int liveGlobalRefs(const std::string& objectName) const override {
    int count = 0;
    for (const std::string& name : liveGlobalRefNames()) count += name == objectName ? 1 : 0;
    return count;
  }
  std::vector<std::string> liveGlobalRefNames() const override {
    return locked([](Machine& m) { return m.references.globalNames(); });
  }
  int outstandingUtf() const override {
    return locked([](Machine& m) { return static_cast<int>(m.utf.size()); });
  }
  int localFrameDepth() const override {
    return locked([](Machine& m) { return m.pushedFrames(); });
  }
  int localRefs() const override {
    return locked([](Machine& m) { return m.references.localsOf(Machine::threadNumber()); });
  }
};

}  // namespace

Runtime& runtimeInstance() {
  static MachineRuntime instance;
  return instance;
}

}  // namespace fakejvm

extern "C" JNIEXPORT fakejvm::Runtime* fakejvm_runtime() { return &fakejvm::runtimeInstance(); }
