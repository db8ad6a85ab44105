// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_INTERRUPTS_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_INTERRUPTS_H_

#include <chrono>

namespace kovctl::sys {

/// From now on Ctrl-C, a request to terminate and a closed terminal are counted instead of ending
/// the process. To be called once the Java runtime is up: starting, it puts handlers of its own in
/// place, which would end the process in the middle of a calibration.
void catchInterrupts();

/// How many there were.
int interruptCount();

/// Waits until there was more than `seen`, or the time is over; tells whether there was. Any
/// thread.
bool waitForInterrupt(int seen, std::chrono::milliseconds time);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_INTERRUPTS_H_
