// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_MODE_KEEPER_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_MODE_KEEPER_H_

#include <l5kov.h>

#include <atomic>
#include <optional>
#include <string>

#include "monitors/selection.h"

namespace kovctl {

/// What became of an attempt to put a monitor back into a mode.
struct ModeResult {
  bool restored = false;
  std::string sentence;  ///< for people: the state of the monitor as it was read back, or why not
  bool noSuchTable = false;
};

/// Activates a look-up table and reads back which one is active.
ModeResult activateMode(const lumora::Monitor& monitor, unsigned mode);

/// The mode that a monitor was in before a run, kept in a note too, so that "kovctl restore" can
/// put it back after a run that was killed. Where such a note lies, the mode that it says is the
/// one from before: the active one is what the killed run happened to leave.
class ModeKeeper {
 public:
  /// @throws JavaException when the monitor cannot say its mode
  ModeKeeper(const lumora::Monitor& watched, const MonitorName& name);

  /// What restore() puts back.
  unsigned mode() const { return pendingMode.value_or(found); }
  /// What was active when this was made.
  unsigned active() const { return found; }
  /// What a run that was killed has left, if anything.
  std::optional<unsigned> pending() const { return pendingMode; }

  /// What a run has done to its monitor.
  enum class Change { kNone, kUnderWay, kPutBack, kKept };
  /// Any thread.
  Change change() const { return done; }

  /// From here on the monitor is changed. Why no note of it could be left, if so.
  std::optional<std::string> arm();
  /// Whether it has been, and has neither been put back nor released since.
  bool isArmed() const { return done == Change::kUnderWay; }
  ModeResult restore();
  /// The run has ended in order with that table active; nothing needs to be put back.
  void release(unsigned active);

 private:
  void settle(unsigned active);

  lumora::Monitor monitor;
  MonitorName monitorName;
  unsigned found;
  std::optional<unsigned> pendingMode;
  std::atomic<Change> done{Change::kNone};
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_MODE_KEEPER_H_
