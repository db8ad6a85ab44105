// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_MODE_NOTE_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_MODE_NOTE_H_

#include <optional>
#include <string>
#include <vector>

#include "monitors/selection.h"

namespace kovctl {

/// What a run leaves behind in this user's state folder while it changes a monitor: the look-up
/// table that was active before. It outlives a run that is killed.
struct ModeNote {
  std::string monitor;  ///< "MODEL:SERIAL"
  unsigned mode = 0;
  bool underWay = false;  ///< the run holds its lock still

  /// For people, with the way out; of a run that has ended.
  std::string sentence() const;

  /// Beside the note, and held as long as the run lasts.
  static std::string lockFileOf(const MonitorName& name);

  static std::optional<unsigned> read(const MonitorName& name);
  /// @throws std::runtime_error
  static void write(const MonitorName& name, unsigned mode);
  static void remove(const MonitorName& name);
  /// Of all monitors, attached or not.
  static std::vector<ModeNote> all();
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_MODE_NOTE_H_
