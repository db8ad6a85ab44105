// SPDX-License-Identifier: MIT
#include <chrono>
#include <thread>

#include "platform/platform.h"

namespace lumora::platform {

// A signal does not cut the pause short: sleep_for resumes.
void sleepMilliseconds(unsigned milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace lumora::platform
