// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_GUARD_GUARDED_WORK_H_
#define L5KOV_BENCH_GUARD_GUARDED_WORK_H_

#include <time.h>

#include <algorithm>
#include <vector>

#include "bench/support/counted_memory.h"

namespace guard {

// What the calling thread allocates in `work`, its result alive.
template <class Work>
long allocationsOf(Work work) {
  work();  // what is made only once is not the work's own
  return static_cast<long>(bench::memoryOf(work).allocations);
}

inline double threadSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// The ratio of the medians of two works, measured in turn: what else the machine does meets both
// alike.
template <class Ours, class Theirs>
double ratioOf(Ours ours, Theirs theirs, int repeats) {
  const auto timed = [repeats](auto& work) {
    const double start = threadSeconds();
    for (int i = 0; i < repeats; ++i) work();
    return threadSeconds() - start;
  };
  std::vector<double> mine;
  std::vector<double> others;
  for (int round = 0; round < 41; ++round) {
    const double first = timed(ours);
    const double second = timed(theirs);
    if (round < 10) continue;  // Java compiles meanwhile
    mine.push_back(first);
    others.push_back(second);
  }
  const auto median = [](std::vector<double>& times) {
    std::nth_element(times.begin(), times.begin() + static_cast<long>(times.size() / 2),
                     times.end());
    return times[times.size() / 2];
  };
  return median(mine) / median(others);
}

}  // namespace guard

#endif  // L5KOV_BENCH_GUARD_GUARDED_WORK_H_
