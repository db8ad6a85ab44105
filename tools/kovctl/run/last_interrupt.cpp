// SPDX-License-Identifier: MIT
#include "run/last_interrupt.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdlib>
#include <memory>

#include "cli/program.h"
#include "system/interrupts.h"

namespace kovctl {
namespace {

constexpr int kOneBefore = 2;
constexpr std::chrono::milliseconds kSlice{50};
constexpr std::chrono::milliseconds kLongestSaying{1000};

}  // namespace

LastInterrupt::LastInterrupt(Context& hostContext, const ModeKeeper& watched,
                             const MonitorName& name)
    : context(hostContext), keeper(watched), monitor(name) {
  thread = std::thread([this] { watch(); });
}

LastInterrupt::~LastInterrupt() {
  over = true;
  thread.join();
}

void LastInterrupt::watch() {
  bool warned = false;
  while (!over) {
    if (!sys::waitForInterrupt(kOneBefore - 1, kSlice)) continue;
    if (!warned) {
      context.out().warn("one more interrupt ends kovctl at once and leaves the monitor as it is");
    }
    warned = true;
    if (sys::waitForInterrupt(kOneBefore, kSlice)) end();
  }
}

Failure LastInterrupt::known() const {
  const std::string what = "ended by a third interrupt";
  const std::string state = "Monitor state: ";
  switch (keeper.change()) {
    case ModeKeeper::Change::kUnderWay:
      return Failure(ExitCode::kRestoreFailed, what,
                     {fmt::format("{}NOT KNOWN: look-up table {} was active before, and \"kovctl "
                                  "restore -m {}\" activates it",
                                  state, keeper.mode(), monitor.text())});
    case ModeKeeper::Change::kPutBack:
      return Failure(ExitCode::kCanceled, what,
                     {fmt::format("{}look-up table {} is active again", state, keeper.mode())});
    case ModeKeeper::Change::kKept:
      return Failure(ExitCode::kOutput, what,
                     {state + "calibrated; what was measured may not have been written"});
    case ModeKeeper::Change::kNone:
      break;
  }
  return Failure(ExitCode::kCanceled, what, {state + "not changed by this run"});
}

// Without unwinding: the run's own thread is somewhere inside Java or a write that nobody reads.
// The latter would keep this one from saying anything, too.
void LastInterrupt::end() const {
  const Failure failure = known();
  const auto said = std::make_shared<std::atomic<bool>>(false);
  std::thread([this, failure, said] {
    reportFailure(context, failure);
    *said = true;
  }).detach();
  const auto limit = std::chrono::steady_clock::now() + kLongestSaying;
  while (!*said && std::chrono::steady_clock::now() < limit) std::this_thread::sleep_for(kSlice);
  std::_Exit(static_cast<int>(failure.code));
}

}  // namespace kovctl
