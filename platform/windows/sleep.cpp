// SPDX-License-Identifier: MIT
#include <windows.h>

#include "platform/platform.h"

namespace lumora::platform {

void sleepMilliseconds(unsigned milliseconds) { ::Sleep(milliseconds); }

}  // namespace lumora::platform
