// SPDX-License-Identifier: MIT
#include "tests/step_clock/step_clock.h"

#include <mutex>
#include <utility>

#include "platform/platform.h"

namespace kovtest {

struct StepClock::State {
  std::mutex mutex;
  std::vector<unsigned> waits;
  std::function<void(unsigned)> action;
};

StepClock::StepClock() : state(new State) {}

StepClock& StepClock::get() {
  static StepClock* const clock = new StepClock;
  return *clock;
}

std::vector<unsigned> StepClock::waits() const {
  const std::lock_guard guard(state->mutex);
  return state->waits;
}

void StepClock::onWait(std::function<void(unsigned)> action) {
  const std::lock_guard guard(state->mutex);
  state->action = std::move(action);
}

void StepClock::forget() {
  const std::lock_guard guard(state->mutex);
  state->waits.clear();
  state->action = nullptr;
}

void StepClock::wait(unsigned milliseconds) {
  std::function<void(unsigned)> action;
  {
    const std::lock_guard guard(state->mutex);
    state->waits.push_back(milliseconds);
    action = state->action;
  }
  if (action) action(milliseconds);
}

}  // namespace kovtest

namespace lumora::platform {

void sleepMilliseconds(unsigned milliseconds) { kovtest::StepClock::get().wait(milliseconds); }

}  // namespace lumora::platform
