// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_SUPPORT_COUNTED_MEMORY_H_
#define L5KOV_BENCH_SUPPORT_COUNTED_MEMORY_H_

#include <cstdint>

// Counts what one thread takes from malloc and its kin: the program's, the library's, its
// peers' and, inside a call, the Java runtime's own. Linking counted_memory.cpp replaces the
// allocation functions of the whole process.
namespace bench {

struct Memory {
  std::int64_t allocations = 0;
  std::int64_t bytes = 0;  // as asked for, without what malloc adds
  std::int64_t held = 0;   // bytes not yet given back, as malloc counts them
};

// The calling thread's sum since it began.
Memory memoryOfThread() noexcept;

}  // namespace bench

#endif  // L5KOV_BENCH_SUPPORT_COUNTED_MEMORY_H_
