// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_SUPPORT_MEASURED_H_
#define L5KOV_BENCH_SUPPORT_MEASURED_H_

#include <benchmark/benchmark.h>

#include "bench/support/counted_memory.h"

namespace bench {

inline void report(benchmark::State& state, const Memory& taken) {
  state.counters["allocations"] = static_cast<double>(taken.allocations);
  state.counters["bytes"] = static_cast<double>(taken.bytes);
  state.counters["held"] = static_cast<double>(taken.held);
}

// Runs `work` once for its memory, then as often as the benchmark wants for its time, in which
// nothing is counted. Whatever `work` returns is destroyed inside the measurement.
//
// Counters: "allocations" and "bytes" of one run; "held" is what is still allocated while its
// result is alive.
template <class Work>
void measure(benchmark::State& state, Work work) {
  work();  // what is made only once is not the work's own
  const Memory taken = memoryOf(work);
  for (auto _ : state) {
    auto result = work();
    benchmark::DoNotOptimize(result);
  }
  report(state, taken);
}

}  // namespace bench

#endif  // L5KOV_BENCH_SUPPORT_MEASURED_H_
