// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_MONITOR_FAILING_NEW_H_
#define L5KOV_TESTS_MONITOR_FAILING_NEW_H_

#include <cstddef>

namespace kovtest {

// While it lives, operator new on this thread throws std::bad_alloc for every request of at least
// this size, also in the libraries of the process. Needs failing_new.cpp in the program.
class FailingNew {
 public:
  explicit FailingNew(std::size_t fromBytes);
  ~FailingNew();
  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_MONITOR_FAILING_NEW_H_
