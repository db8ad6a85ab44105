// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_LAST_INTERRUPT_H_
#define L5KOV_TOOLS_KOVCTL_RUN_LAST_INTERRUPT_H_

#include <atomic>
#include <thread>

#include "cli/context.h"
#include "failure.h"
#include "monitors/mode_keeper.h"
#include "monitors/selection.h"

namespace kovctl {

/// While a run lasts. The first interrupt cancels it, which may take as long as the monitor does;
/// the third ends the program wherever it hangs, with what is known of the monitor.
class LastInterrupt {
 public:
  /// Both must outlive it.
  LastInterrupt(Context& hostContext, const ModeKeeper& watched, const MonitorName& name);
  LastInterrupt(const LastInterrupt&) = delete;
  LastInterrupt& operator=(const LastInterrupt&) = delete;
  ~LastInterrupt();

 private:
  void watch();
  Failure known() const;
  [[noreturn]] void end() const;

  Context& context;
  const ModeKeeper& keeper;
  const MonitorName monitor;
  std::atomic<bool> over{false};
  std::thread thread;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_LAST_INTERRUPT_H_
