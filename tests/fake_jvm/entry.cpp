// SPDX-License-Identifier: MIT
#include "tests/fake_jvm/entry.h"

#include "tests/fake_jvm/describe.h"

namespace fakejvm {

Entry::Entry(JNIEnv* env, std::string slotName, PendingRule pendingRule)
    : machine(Machine::get()),
      thread(static_cast<ThreadState*>(env)),
      slot(std::move(slotName)),
      rule(pendingRule),
      lock(machine.mutex) {
  checkThread();
}

Entry::Entry(std::string slotName)
    : machine(Machine::get()),
      thread(nullptr),
      slot(std::move(slotName)),
      rule(PendingRule::kAllowed),
      lock(machine.mutex) {}

void Entry::checkThread() {
  if (!thread->attached) {
    problem("called through the environment of a detached thread");
  } else if (thread->number != Machine::threadNumber()) {
    problem("called on thread " + std::to_string(Machine::threadNumber()) +
            " through the environment of thread " + std::to_string(thread->number));
  }
}

ObjectRef Entry::object(jobject reference) {
  if (reference == nullptr) return nullptr;
  const References::Entry* entry = machine.references.find(reference);
  if (entry == nullptr) {
    problem("dead reference: " + machine.references.epitaph(reference));
    return nullptr;
  }
  if (entry->thread != 0 && entry->thread != thread->number) {
    problem("local reference of thread " + std::to_string(entry->thread) + ": " +
            displayName(entry->object));
  }
  return entry->object;
}

std::optional<std::string> Entry::className(jclass reference) {
  const ObjectRef classObject = object(reference);
  const auto name = ClassTable::classNameOf(classObject);
  if (reference == nullptr) {
    problem("null class");
  } else if (classObject && !name) {
    problem(displayName(classObject) + " is not a class");
  }
  return name;
}

const Member* Entry::member(const void* identifier, Member::Kind kind) {
  const Member* member = machine.classes.known(identifier);
  if (identifier == nullptr) {
    problem("null identifier");
  } else if (member == nullptr) {
    problem("not an identifier");
  } else if (member->kind != kind) {
    problem("identifier of another kind: " + member->text());
  } else {
    return member;
  }
  return nullptr;
}

void Entry::log(const std::string& detail) {
  lineText = detail.empty() ? slot : slot + " " + detail;
  Recorder& recorder = machine.recorder;
  number = ++recorder.callCount;
  recorder.lines.push_back({Machine::threadNumber(), lineText});
  if (thread != nullptr) checkPending();
  if (recorder.hook) {
    const auto hook = recorder.hook;
    unlocked([&] { hook(lineText); });
  }
}

void Entry::checkPending() {
  Recorder& recorder = machine.recorder;
  if (rule == PendingRule::kForbidden) {
    if (thread->pending) {
      recorder.xcheckWarnings.push_back("JNI call made with exception pending: " + lineText);
    }
    if (!thread->unchecked.empty()) {
      recorder.xcheckWarnings.push_back("no exception check after " + thread->unchecked +
                                        " before " + lineText);
    }
  }
  if (rule != PendingRule::kAllowed) thread->unchecked.clear();
}

std::optional<Fault> Entry::takeFault(Fault::Kind kind) {
  Recorder& recorder = machine.recorder;
  const auto found = recorder.faults.find(number);
  if (found == recorder.faults.end() || found->second.kind != kind) return std::nullopt;
  const Fault fault = found->second;
  recorder.faults.erase(found);
  ++recorder.faultsApplied;
  return fault;
}

bool Entry::fails(const char* error, const std::string& message) {
  if (const auto fault = takeFault(Fault::Kind::kException)) {
    raise(fault->className, fault->message);
    return true;
  }
  if (!takeFault(Fault::Kind::kNullResult)) return false;
  if (error != nullptr) raise(error, message);
  return true;
}

bool Entry::failsQuietly() { return takeFault(Fault::Kind::kNullResult).has_value(); }

bool Entry::failsAsCall(bool isVoid) {
  if (const auto fault = takeFault(Fault::Kind::kException)) {
    raise(fault->className, fault->message);
    return true;
  }
  return !isVoid && failsQuietly();
}

void Entry::raise(const std::string& className, const std::optional<std::string>& message) {
  thread->pending = machine.newThrowable(className, message);
}

}  // namespace fakejvm
