// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_POCKETJSON_COUNTING_NEW_H_
#define L5KOV_TESTS_POCKETJSON_COUNTING_NEW_H_

#include <atomic>

// operator new of the whole process, the library included, with counters and a fuse.
namespace counting {

extern std::atomic<long long> allocations;  // made so far
extern std::atomic<long long> alive;        // not yet freed
extern std::atomic<long long> fuse;         // how many more succeed; negative: all of them

// While it lives, the first `count` allocations succeed and the others throw std::bad_alloc.
class FailAfter {
 public:
  explicit FailAfter(long long count) { fuse = count; }
  ~FailAfter() { fuse = -1; }
  FailAfter(const FailAfter&) = delete;
  FailAfter& operator=(const FailAfter&) = delete;
};

}  // namespace counting

#endif  // L5KOV_TESTS_POCKETJSON_COUNTING_NEW_H_
