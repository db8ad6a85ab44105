// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_MACHINE_H_
#define L5KOV_TESTS_FAKE_JVM_MACHINE_H_

#include <jni.h>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "tests/fake_jvm/class_table.h"
#include "tests/fake_jvm/recorder.h"
#include "tests/fake_jvm/references.h"

namespace fakejvm {

// One attachment of a thread; its JNIEnv. Never freed, so that a late use is noticed.
struct ThreadState : JNIEnv_ {
  int number = 0;  // of the thread; see threadNumber()
  bool attached = true;
  int javaDepth = 0;  // Java methods on its stack
  ObjectRef pending;
  // The call whose exception check is still owed, as it was logged; empty when none is.
  std::string unchecked;
  std::vector<Frame> frames = std::vector<Frame>(1);
};

struct Native {
  std::string className;
  std::string name;
  std::string signature;
  void* entry = nullptr;
};

// The fake virtual machine. One per process, never destroyed. `mutex` guards everything else; no
// script, hook or native method runs under it.
class Machine {
 public:
  static Machine& get();

  std::mutex mutex;

  ClassTable classes;
  References references;
  Recorder recorder;

  bool created = false;
  std::optional<jint> createResult;
  std::optional<jint> createdVmsResult;
  std::optional<VmArguments> vmArguments;
  std::map<std::string, ObjectRef> objects;  // by name
  std::vector<Native> natives;
  std::map<const char*, std::string> utf;  // taken characters and whose they are
  JavaVM_ vm{};

  // 1, 2, 3 ... in the order in which threads first came here.
  static int threadNumber();
  // Null when the calling thread is not attached.
  ThreadState* current() const { return stateOf(threadNumber()); }
  ThreadState* stateOf(int number) const;
  ThreadState* attach();
  void detach(ThreadState& thread, const std::string& why);
  void forgetVm();
  void reset();

  int attachedThreads() const { return static_cast<int>(attached.size()); }
  int pushedFrames() const;
  jobject addLocal(ThreadState& thread, const ObjectRef& object);
  ObjectRef newThrowable(const std::string& className, const std::optional<std::string>& message);
  void problem(std::string text) { recorder.problems.push_back(std::move(text)); }

 private:
  Machine();
  void dropFrames(ThreadState& thread);

  std::map<int, ThreadState*> attached;
  std::vector<std::unique_ptr<ThreadState>> states;
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_MACHINE_H_
