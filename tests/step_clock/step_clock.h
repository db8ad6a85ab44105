// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_STEP_CLOCK_STEP_CLOCK_H_
#define L5KOV_TESTS_STEP_CLOCK_STEP_CLOCK_H_

#include <functional>
#include <vector>

#include "l5kov/export.h"

namespace kovtest {

// The clock of l5kov_stepclock, which is the shipped library's code with waits that return at once.
// Thread-safe.
class L5KOV_API StepClock {
 public:
  static StepClock& get();

  // Milliseconds of every wait since the process began, in their order.
  std::vector<unsigned> waits() const;
  // Runs inside each wait, on the waiting thread, after the wait was recorded.
  void onWait(std::function<void(unsigned milliseconds)> action);
  void forget();

  // What the library calls.
  void wait(unsigned milliseconds);

 private:
  StepClock();
  ~StepClock() = delete;  // lives as long as the process
  struct State;
  State* state;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_STEP_CLOCK_STEP_CLOCK_H_
