// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_CLI_EARLY_INTERRUPT_H_
#define L5KOV_TOOLS_KOVCTL_CLI_EARLY_INTERRUPT_H_

#include <atomic>
#include <thread>

#include "cli/context.h"
#include "failure.h"

namespace kovctl {

/// As long as it lives nothing has been changed yet, and an interrupt ends the program at once: a
/// search for monitors blocks inside Java and a question waits for an answer, so that neither could
/// be left in another way. Starts Java. Made and destroyed by the thread that runs the command.
class EarlyInterrupt {
 public:
  /// @throws Failure(kRuntime)
  explicit EarlyInterrupt(Context& hostContext);
  EarlyInterrupt(const EarlyInterrupt&) = delete;
  EarlyInterrupt& operator=(const EarlyInterrupt&) = delete;
  ~EarlyInterrupt();

 private:
  Context& context;
  std::atomic<bool> over{false};
  std::thread thread;
};

/// What an interrupt amounts to as long as nothing has been changed.
Failure canceledUnchanged();
/// For later, when nothing has been changed either. @throws Failure(kCanceled)
void throwIfInterrupted();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_CLI_EARLY_INTERRUPT_H_
