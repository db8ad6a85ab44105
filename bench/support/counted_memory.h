// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_SUPPORT_COUNTED_MEMORY_H_
#define L5KOV_BENCH_SUPPORT_COUNTED_MEMORY_H_

#include <cstdint>

// Counts what one thread takes from malloc and its kin: the program's, the library's, its
// peers' and, inside a call, the Java runtime's own. Linking counted_memory.cpp replaces the
// allocation functions of the whole process; where nothing is counted, they cost one comparison
// more.
namespace bench {

struct Memory {
  std::int64_t allocations = 0;
  std::int64_t bytes = 0;  // as asked for, without what malloc adds
  std::int64_t held = 0;   // bytes not yet given back, as malloc counts them
};

// Counts on the thread that makes it, as long as it lives. One at a time.
class CountedMemory {
 public:
  CountedMemory() noexcept;
  ~CountedMemory();
  CountedMemory(const CountedMemory&) = delete;
  CountedMemory& operator=(const CountedMemory&) = delete;

  Memory soFar() const noexcept { return counted; }

 private:
  Memory counted;
};

// What the calling thread takes in `work`, its result alive.
template <class Work>
Memory memoryOf(Work work) {
  const CountedMemory counted;
  [[maybe_unused]] const auto result = work();
  return counted.soFar();
}

}  // namespace bench

#endif  // L5KOV_BENCH_SUPPORT_COUNTED_MEMORY_H_
