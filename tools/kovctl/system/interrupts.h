// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_INTERRUPTS_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_INTERRUPTS_H_

#include <chrono>
#include <functional>

namespace kovctl::sys {

/// Starts the Java runtime, and from then on Ctrl-C, a request to terminate and a closed terminal
/// are counted instead of ending the process; those that come meanwhile are counted, too. Starting,
/// the runtime puts handlers of its own in place, which would end the process in the middle of a
/// calibration. To be called by the first thread, before it makes others.
void catchInterrupts(const std::function<void()>& startJava);

/// How many there were.
int interruptCount();

/// Waits until there was more than `seen`, or the time is over; tells whether there was. Any
/// thread.
bool waitForInterrupt(int seen, std::chrono::milliseconds time);

}  // namespace kovctl::sys

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_INTERRUPTS_H_
