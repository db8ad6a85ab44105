// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/machine.h"

#include <atomic>

#include "tests/fake_jvm/describe.h"
#include "tests/fake_jvm/slots.h"

namespace fakejvm {

Machine& Machine::get() {
  static auto* machine = new Machine;  // libl5kov still calls while the process ends
  return *machine;
}

Machine::Machine() { vm.functions = &invocationTable(); }

int Machine::threadNumber() {
  static std::atomic<int> last{0};
  // Without a destructor, since libl5kov detaches while a thread's own objects are destroyed.
  static thread_local int number = 0;
  if (number == 0) number = ++last;
  return number;
}

ThreadState* Machine::stateOf(int number) const {
  const auto found = attached.find(number);
  return found == attached.end() ? nullptr : found->second;
}

ThreadState* Machine::attach() {
  ThreadState*& state = attached[threadNumber()];
  if (state == nullptr) {
    states.push_back(std::make_unique<ThreadState>());
    state = states.back().get();
    state->functions = &functionTable();
    state->number = threadNumber();
  }
  return state;
}

jobject Machine::addLocal(ThreadState& thread, const ObjectRef& object) {
  Frame& frame = thread.frames.back();
  const jobject reference = references.addLocal(object, thread.number, frame);
  if (frame.kind != Frame::Kind::kBase &&
      frame.locals.size() == frame.announced + Frame::kSlack + 1) {
    recorder.xcheckWarnings.push_back("JNI local refs: " + std::to_string(frame.locals.size()) +
                                      ", exceeds capacity: " + std::to_string(frame.announced));
  }
  return reference;
}

void Machine::detach(ThreadState& thread, const std::string& why) {
  for (Frame& frame : thread.frames) references.removeAll(frame, why);
  thread.frames.assign(1, Frame());
  thread.attached = false;
  thread.pending = nullptr;
  thread.unchecked.clear();
  attached.erase(thread.number);
}

void Machine::forgetVm() {
  while (!attached.empty()) detach(*attached.begin()->second, "its virtual machine is gone");
  references.removeGlobals();
  natives.clear();
  created = false;
}

// What the library's bindings hold on to stays. What a failed test left behind does not: it would
// fail the next one.
void Machine::reset() {
  classes.reset();
  recorder = Recorder();
  objects.clear();
  createResult.reset();
  createdVmsResult.reset();
  for (const auto& [number, thread] : attached) {
    thread->pending = nullptr;
    thread->unchecked.clear();
    if (thread->javaDepth == 0) dropFrames(*thread);
  }
  for (const auto& [bytes, name] : utf) delete[] bytes;
  utf.clear();
  restartNames();
}

void Machine::dropFrames(ThreadState& thread) {
  while (thread.frames.size() > 1) {
    references.removeAll(thread.frames.back(), "its frame was dropped");
    thread.frames.pop_back();
  }
}

int Machine::pushedFrames() const {
  int count = 0;
  for (const auto& [number, thread] : attached) {
    for (const Frame& frame : thread->frames) count += frame.kind == Frame::Kind::kPushed ? 1 : 0;
  }
  return count;
}

ObjectRef Machine::newThrowable(const std::string& className,
                                const std::optional<std::string>& message) {
  classes.makeThrowable(className);
  auto throwable = std::make_shared<Object>(className);
  throwable->setField("message", message ? Value(*message) : Value(nullptr));
  return throwable;
}

}  // namespace fakejvm
