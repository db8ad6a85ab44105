// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_FAKE_JVM_REFERENCES_H_
#define L5KOV_TESTS_FAKE_JVM_REFERENCES_H_

#include <jni.h>

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "tests/fake_jvm/java_value.h"

namespace fakejvm {

// Local references made between a push and its pop.
struct Frame {
  // kBase: the thread's own, until it detaches. kPushed: PushLocalFrame. kNative: Java called a
  // native method.
  enum class Kind { kBase, kPushed, kNative };
  // So many references HotSpot 11 takes without a word under -Xcheck:jni: 32 more than announced.
  static constexpr std::size_t kSlack = 32;
  static constexpr std::size_t kAnnounced = 32;  // where nobody announces any
  Kind kind = Kind::kBase;
  std::vector<jobject> locals;
  std::size_t announced = kAnnounced;
};

// All live references. A reference is a number that is never given out twice, so that every later
// use of a dead one is noticed. Guarded by the machine's mutex.
class References {
 public:
  struct Entry {
    ObjectRef object;
    int thread = 0;  // the owner of a local reference; 0 for a global one
  };

  // Null for a null object.
  jobject addLocal(const ObjectRef& object, int thread, Frame& frame);
  jobject addGlobal(const ObjectRef& object);
  // Null when the reference is not (or no longer) live.
  const Entry* find(jobject reference) const;
  void remove(jobject reference, const std::string& why);
  void removeAll(Frame& frame, const std::string& why);
  void removeGlobals();
  // Of a reference that is dead: "monitor (its frame was popped)"; "unknown reference" otherwise.
  std::string epitaph(jobject reference) const;
  // The object's name, or "unknown reference".
  std::string deadName(jobject reference) const;

  std::vector<std::string> globalNames() const;
  int localsOf(int thread) const;

 private:
  struct Grave {
    std::string name;
    std::string why;
  };
  jobject add(Entry entry);

  std::unordered_map<jobject, Entry> live;
  std::unordered_map<jobject, Grave> dead;
  uintptr_t serial = 0;
};

}  // namespace fakejvm

#endif  // L5KOV_TESTS_FAKE_JVM_REFERENCES_H_
