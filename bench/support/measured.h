// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_SUPPORT_MEASURED_H_
#define L5KOV_BENCH_SUPPORT_MEASURED_H_

#include <benchmark/benchmark.h>

#include "bench/support/counted_memory.h"

namespace bench {

// Runs `work` once for its memory, then as often as the benchmark wants for its time. Whatever
// `work` returns is destroyed inside the measurement.
//
// Counters: "allocations" and "bytes" of one run; "held" is what is still allocated while its result
// is alive.
template <class Work>
void measure(benchmark::State& state, Work work) {
  work();  // what is made only once is not the work's own
  const Memory before = memoryOfThread();
  Memory after;
  {
    [[maybe_unused]] const auto result = work();
    after = memoryOfThread();
  }
  for (auto _ : state) {
    auto result = work();
    benchmark::DoNotOptimize(result);
  }
  state.counters["allocations"] = static_cast<double>(after.allocations - before.allocations);
  state.counters["bytes"] = static_cast<double>(after.bytes - before.bytes);
  state.counters["held"] = static_cast<double>(after.held - before.held);
}

}  // namespace bench

#endif  // L5KOV_BENCH_SUPPORT_MEASURED_H_
