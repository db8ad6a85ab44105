// SPDX-License-Identifier: MIT
#include "cli/early_interrupt.h"

#include <cstdlib>

#include "cli/program.h"
#include "monitors/java_start.h"
#include "system/interrupts.h"

namespace kovctl {
namespace {

constexpr std::chrono::milliseconds kSlice{50};

}  // namespace

EarlyInterrupt::EarlyInterrupt(Context& hostContext) : context(hostContext) {
  sys::catchInterrupts(startJava);
  thread = std::thread([this] {
    while (!over) {
      if (!sys::waitForInterrupt(0, kSlice)) continue;
      // Without unwinding: the other thread is somewhere inside Java.
      std::_Exit(static_cast<int>(reportFailure(context, canceledUnchanged())));
    }
  });
}

EarlyInterrupt::~EarlyInterrupt() {
  over = true;
  thread.join();
}

Failure canceledUnchanged() {
  return Failure(ExitCode::kCanceled, "canceled before anything was changed");
}

void throwIfInterrupted() {
  if (sys::interruptCount() > 0) throw canceledUnchanged();
}

}  // namespace kovctl
