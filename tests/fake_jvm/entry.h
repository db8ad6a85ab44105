// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_ENTRY_H_
#define L5KOV_TESTS_FAKE_JVM_ENTRY_H_

#include <jni.h>

#include <optional>
#include <string>

#include "tests/fake_jvm/machine.h"

namespace fakejvm {

// What a slot has to do with a pending exception.
enum class PendingRule {
  kForbidden,  // most slots: -Xcheck:jni warns
  kAllowed,    // releasing things is always legal
  kChecks,     // ExceptionCheck and its kin: what -Xcheck:jni waits for after a call
};

// One JNI call in progress: holds the machine's mutex from construction to destruction, but for
// scripts and hooks. A slot resolves its references first (`object`), then writes its line
// (`log`), then asks whether it is to fail (`fails`), then does its work.
class Entry {
 public:
  // A call through a thread's environment.
  Entry(JNIEnv* env, std::string slotName, PendingRule pendingRule = PendingRule::kForbidden);
  // A call of the invocation interface: no environment, maybe no attached thread.
  explicit Entry(std::string slotName);

  Machine& machine;
  ThreadState* const thread;  // null only for the invocation interface

  // The object of a reference, null for null. Notes a dead or foreign reference as a problem.
  ObjectRef object(jobject reference);
  // The class that the reference stands for; notes null and other objects as a problem.
  std::optional<std::string> className(jclass reference);
  // The member that the identifier stands for; notes null and foreign ones as a problem.
  const Member* member(const void* identifier, Member::Kind kind);

  // Numbers the call and writes "Slot detail". Runs the hook.
  void log(const std::string& detail = {});
  // True when a fault strikes this call: the slot returns null, 0 or its error code. `error` is
  // the class that HotSpot leaves pending beside a null result, null for none.
  bool fails(const char* error = nullptr, const std::string& message = {});
  // The same for a slot that can fail quietly only.
  bool failsQuietly();
  // The same for a Java call; a void one cannot answer null.
  bool failsAsCall(bool isVoid);

  void raise(const std::string& className, const std::optional<std::string>& message);
  // "Slot: text".
  void problem(const std::string& text) { machine.problem(slot + ": " + text); }
  jobject local(const ObjectRef& object) { return machine.addLocal(*thread, object); }
  const std::string& line() const { return lineText; }
  // Runs an action without the mutex.
  template <typename Action>
  void unlocked(Action action) {
    lock.unlock();
    action();
    lock.lock();
  }

 private:
  void checkThread();
  void checkPending();
  std::optional<Fault> takeFault(Fault::Kind kind);

  const std::string slot;
  const PendingRule rule;
  std::unique_lock<std::mutex> lock;
  std::string lineText;
  int number = 0;
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_ENTRY_H_
