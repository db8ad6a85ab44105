// SPDX-License-Identifier: MIT
#include "platform/platform.h"

namespace lumora::platform {
namespace {

// Without a destructor, so they stay when the thread's other objects are gone.
constinit thread_local void* slots[kThreadSlots] = {};

struct AtThreadEnd {
  ~AtThreadEnd() { function(); }
  void (*function)();
};

}  // namespace

void* threadSlot(ThreadSlot slot) noexcept { return slots[static_cast<int>(slot)]; }

void setThreadSlot(ThreadSlot slot, void* value) { slots[static_cast<int>(slot)] = value; }

void callAtThreadEnd(void (*function)()) {
  thread_local const AtThreadEnd atEnd{function};
  static_cast<void>(atEnd);
}

}  // namespace lumora::platform
