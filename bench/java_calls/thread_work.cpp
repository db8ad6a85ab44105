// SPDX-License-Identifier: MIT
// A thread's first Env() and its end.
#include <chrono>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include "bench/java_calls/look_ups.h"
#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

using Clock = std::chrono::steady_clock;

// Made before the thread's environment, so destroyed after it: the end is part of the time.
struct Stopwatch {
  Clock::time_point start = Clock::now();
  double* seconds = nullptr;
  ~Stopwatch() {
    if (seconds != nullptr) *seconds = std::chrono::duration<double>(Clock::now() - start).count();
  }
};
thread_local Stopwatch stopwatch;

template <class Work>
double secondsOfThread(Work work) {
  double seconds = 0.0;
  std::thread([&] {
    stopwatch.seconds = &seconds;
    stopwatch.start = Clock::now();
    work();
  }).join();
  return seconds;
}

void thread(benchmark::State& state) {
  bench::colourMonitor();
  bench::Memory taken;
  for (auto _ : state) {
    state.SetIterationTime(secondsOfThread([&] {
      const bench::Memory before = bench::memoryOfThread();
      lumora::kov::java::Env();
      const bench::Memory after = bench::memoryOfThread();
      taken.allocations = after.allocations - before.allocations;
      taken.bytes = after.bytes - before.bytes;
      taken.held = after.held - before.held;
    }));
  }
  state.counters["allocations"] = static_cast<double>(taken.allocations);
  state.counters["bytes"] = static_cast<double>(taken.bytes);
  state.counters["held"] = static_cast<double>(taken.held);
}

void attachAndLookUp(JavaVM* vm, bench::RawLookUps*& found) {
  void* env = nullptr;
  vm->AttachCurrentThread(&env, nullptr);
  found = new bench::RawLookUps(static_cast<JNIEnv*>(env));
}

void threadByHand(benchmark::State& state) {
  JavaVM* vm = nullptr;
  bench::raw().env->GetJavaVM(&vm);
  bench::Memory taken;
  for (auto _ : state) {
    state.SetIterationTime(secondsOfThread([&] {
      const bench::Memory before = bench::memoryOfThread();
      bench::RawLookUps* found = nullptr;
      attachAndLookUp(vm, found);
      const bench::Memory after = bench::memoryOfThread();
      if (found->classes + found->members != 129) state.SkipWithError("not 129 look-ups");
      delete found;
      vm->DetachCurrentThread();
      taken.allocations = after.allocations - before.allocations;
      taken.bytes = after.bytes - before.bytes;
      taken.held = after.held - before.held;
    }));
  }
  state.counters["allocations"] = static_cast<double>(taken.allocations);
  state.counters["bytes"] = static_cast<double>(taken.bytes);
  state.counters["held"] = static_cast<double>(taken.held);
}

// That many threads that have their environment at the same time.
void threads(benchmark::State& state) {
  bench::colourMonitor();
  for (auto _ : state) {
    std::latch ready(state.range(0));
    std::vector<std::thread> all;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
      all.emplace_back([&] {
        lumora::kov::java::Env();
        ready.arrive_and_wait();
      });
    }
    for (std::thread& one : all) one.join();
  }
}

}  // namespace

BENCHMARK(thread)->Name("thread/library")->UseManualTime();
BENCHMARK(threadByHand)->Name("thread/raw")->UseManualTime();
BENCHMARK(threads)->Name("threads/library")->Arg(1)->Arg(10)->Arg(100)->UseRealTime();
