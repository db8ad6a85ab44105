// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_PROCESSES_WATCHED_START_H_
#define L5KOV_BENCH_PROCESSES_WATCHED_START_H_

namespace bench {

// The steps of a start of Java on this thread, timed where they pass the loader: linking
// watched_start.cpp puts its dlopen and dlsym before the system's, for every library of the
// process. The nanoseconds are the thread's processor time: by the clock, a busy machine makes a
// third of it up.
struct StartSteps {
  long long load = 0;    // inside dlopen
  long long create = 0;  // inside JNI_CreateJavaVM, what that loads included
};

long long nanosecondsOfThread() noexcept;

// From now on, on the calling thread.
void watchStart() noexcept;
StartSteps stepsSoFar() noexcept;

}  // namespace bench

#endif  // L5KOV_BENCH_PROCESSES_WATCHED_START_H_
