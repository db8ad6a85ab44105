// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_MODE_KEEPER_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_MODE_KEEPER_H_

#include <l5kov.h>

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

/// The mode that a monitor was in before a run, kept in a file too, so that "kovctl restore" can
/// put it back after a run that was killed.
class ModeKeeper {
 public:
  /// @throws JavaException when the monitor cannot say its mode
  ModeKeeper(const lumora::Monitor& watched, const MonitorName& name);

  unsigned mode() const { return before; }
  /// From here on the monitor is changed.
  void arm();
  ModeResult restore();
  /// The run has ended in order; nothing needs to be put back.
  void forget();

  /// What a run that was killed has left, if anything.
  static std::optional<unsigned> remembered(const MonitorName& name);
  static void forget(const MonitorName& name);

 private:
  lumora::Monitor monitor;
  MonitorName monitorName;
  unsigned before;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_MODE_KEEPER_H_
