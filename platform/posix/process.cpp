// SPDX-License-Identifier: MIT
#include "platform/platform.h"

namespace lumora::platform {

// Threads keep running until the process is gone, so no lock is ever left behind.
bool processIsEnding() noexcept { return false; }

}  // namespace lumora::platform
