// SPDX-License-Identifier: MIT
// A thread's first Env() and its end, in the time that the thread works for them.
#include <time.h>

#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include "bench/java_calls/look_ups.h"
#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

double secondsOfThisThread() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Made before the thread's environment, so destroyed after it: the end is part of the time.
struct Stopwatch {
  double start = 0.0;
  double* seconds = nullptr;
  ~Stopwatch() {
    if (seconds != nullptr) *seconds = secondsOfThisThread() - start;
  }
};
thread_local Stopwatch stopwatch;

template <class Work>
double secondsOfThread(Work work) {
  double seconds = 0.0;
  std::thread([&] {
    stopwatch.seconds = &seconds;
    stopwatch.start = secondsOfThisThread();
    work();
  }).join();
  return seconds;
}

void thread(benchmark::State& state) {
  bench::colourMonitor();
  for (auto _ : state) {
    state.SetIterationTime(secondsOfThread(lumora::kov::java::Env));
  }
  bench::Memory taken;
  std::thread([&] { taken = bench::memoryOf(lumora::kov::java::Env); }).join();
  bench::report(state, taken);
}

std::unique_ptr<bench::RawLookUps> attachAndLookUp(JavaVM* vm) {
  void* env = nullptr;
  vm->AttachCurrentThread(&env, nullptr);
  return std::make_unique<bench::RawLookUps>(static_cast<JNIEnv*>(env));
}

void threadByHand(benchmark::State& state) {
  JavaVM* vm = nullptr;
  bench::raw().env->GetJavaVM(&vm);
  for (auto _ : state) {
    state.SetIterationTime(secondsOfThread([&] {
      const auto found = attachAndLookUp(vm);
      if (found->classes + found->members != 129) state.SkipWithError("not 129 look-ups");
      vm->DetachCurrentThread();
    }));
  }
  bench::Memory taken;
  std::thread([&] {
    taken = bench::memoryOf([&] { return attachAndLookUp(vm); });
    vm->DetachCurrentThread();
  }).join();
  bench::report(state, taken);
}

// What of it is the Java runtime's own, whatever is looked up.
void threadAttached(benchmark::State& state) {
  JavaVM* vm = nullptr;
  bench::raw().env->GetJavaVM(&vm);
  for (auto _ : state) {
    state.SetIterationTime(secondsOfThread([vm] {
      void* env = nullptr;
      vm->AttachCurrentThread(&env, nullptr);
      vm->DetachCurrentThread();
    }));
  }
}

// That many threads that have their environment at the same time.
template <class Work>
void atOnce(std::int64_t count, Work work) {
  std::latch ready(count);
  std::vector<std::thread> all;
  for (std::int64_t i = 0; i < count; ++i) {
    all.emplace_back([&, i] {
      work(i);
      ready.arrive_and_wait();
    });
  }
  for (std::thread& one : all) one.join();
}

void threads(benchmark::State& state) {
  bench::colourMonitor();
  std::vector<bench::Memory> taken(static_cast<std::size_t>(state.range(0)));
  atOnce(state.range(0), [&](std::int64_t i) {
    taken[static_cast<std::size_t>(i)] = bench::memoryOf(lumora::kov::java::Env);
  });
  for (auto _ : state) {
    atOnce(state.range(0), [](std::int64_t) { lumora::kov::java::Env(); });
  }
  bench::Memory sum;
  for (const bench::Memory& one : taken) {
    sum.allocations += one.allocations;
    sum.bytes += one.bytes;
    sum.held += one.held;
  }
  bench::report(state, sum);
}

}  // namespace

BENCHMARK(thread)->Name("thread/library")->UseManualTime();
BENCHMARK(threadByHand)->Name("thread/raw")->UseManualTime();
BENCHMARK(threadAttached)->Name("thread/attach_only")->UseManualTime();
BENCHMARK(threads)->Name("threads/library")->Arg(1)->Arg(10)->Arg(100)->UseRealTime();
