// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_GUARD_QUERY_WORK_H_
#define L5KOV_BENCH_GUARD_QUERY_WORK_H_

#include <jni.h>

#include <memory>
#include <string>

// The two other sides of query_work, each in a shared library of its own, since instructions are
// counted by the library that they lie in.
namespace guard {

// Guarded calls through a wrapper, as the library's own operations make them.
class [[gnu::visibility("default")]] GuardedCalls {
 public:
  explicit GuardedCalls(jobject monitor);
  ~GuardedCalls();
  GuardedCalls(const GuardedCalls&) = delete;
  GuardedCalls& operator=(const GuardedCalls&) = delete;

  int number() const;
  std::string text() const;  // in a frame of its own

 private:
  struct Wrapper;
  std::unique_ptr<Wrapper> wrapper;
};

// The same JNI calls without the library.
class [[gnu::visibility("default")]] CallsByHand {
 public:
  CallsByHand(JNIEnv* threadsEnv, jobject rawMonitor);

  int uncheckedNumber() const;
  int number() const;
  int numberInFrame() const;
  std::string uncheckedText() const;
  std::string textInFrame() const;

 private:
  JNIEnv* env;
  jobject monitor;
  jmethodID getWorkingHours;
  jmethodID getModel;
};

}  // namespace guard

#endif  // L5KOV_BENCH_GUARD_QUERY_WORK_H_
