// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_RELIABILITY_FAILING_ALLOCATION_H_
#define L5KOV_TESTS_RELIABILITY_FAILING_ALLOCATION_H_

namespace reliability {

// While it lives, the n-th operator new (from 1) that this thread makes inside libl5kov, or in a
// library that libl5kov calls, throws std::bad_alloc. What the fake Java runtime and the test
// itself allocate meanwhile succeeds and does not count: each request's stack is searched for the
// innermost of the three. Needs failing_allocation.cpp in the program.
class FailingAllocation {
 public:
  explicit FailingAllocation(int number);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  // Whether there was an n-th one.
  bool struck() const;
};

// Allocations of libl5kov on this thread while counting; see FailingAllocation. A number that is
// never reached only counts.
int countedAllocations();

}  // namespace reliability

#endif  // L5KOV_TESTS_RELIABILITY_FAILING_ALLOCATION_H_
