// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_JAVA_CALLS_WATCHED_CALLS_H_
#define L5KOV_BENCH_JAVA_CALLS_WATCHED_CALLS_H_

#include <jni.h>
#include <time.h>

#include <chrono>

namespace bench {

// The thread's own time, which a busy machine does not stretch. Its answer takes a call of the
// system: for what is asked a few times.
struct ThreadClock {
  using duration = std::chrono::nanoseconds;
  static duration now() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
  }
};
// For what is asked hundreds of times.
using WallClock = std::chrono::steady_clock;

// Adds what passes while it lives.
template <class Clock>
class Stopwatch {
 public:
  explicit Stopwatch(std::chrono::nanoseconds& sum) : sum(sum), start(Clock::now()) {}
  ~Stopwatch() { sum += Clock::now() - start; }
  Stopwatch(const Stopwatch&) = delete;
  Stopwatch& operator=(const Stopwatch&) = delete;

 private:
  std::chrono::nanoseconds& sum;
  decltype(Clock::now()) start;
};

// While it lives, the environment's table of functions is a copy in which the time of each call
// into Java, and of each native function registered meanwhile, is taken on the way. One at a time,
// on the environment's own thread.
class WatchedCalls {
 public:
  WatchedCalls(JNIEnv* env, jmethodID longMethod);
  ~WatchedCalls();
  WatchedCalls(const WatchedCalls&) = delete;
  WatchedCalls& operator=(const WatchedCalls&) = delete;

  // Inside Java, what it calls back included. Of the long method it is the thread's time, of the
  // others that by the clock.
  std::chrono::nanoseconds inJava() const;
  // How often any of them was entered.
  int borders() const;
  // Inside the native functions: by the clock.
  std::chrono::nanoseconds inNatives() const;

 private:
  JNIEnv* env;
};

}  // namespace bench

#endif  // L5KOV_BENCH_JAVA_CALLS_WATCHED_CALLS_H_
