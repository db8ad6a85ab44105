// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_RUN_LOCK_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_RUN_LOCK_H_

#include <memory>
#include <optional>
#include <string>

#include "monitors/selection.h"
#include "system/file_lock.h"

namespace kovctl {

/// Held by a command from before it asks a monitor for its state until that is put right, so that
/// no other command of this user changes the monitor meanwhile.
class RunLock {
 public:
  /// @throws Failure(kCommunication) when another command holds it
  explicit RunLock(const MonitorName& name);

  /// Why there is no lock, if there is none: a state folder that cannot be written must not keep a
  /// monitor from being calibrated.
  const std::optional<std::string>& problem() const { return missing; }

 private:
  std::unique_ptr<sys::FileLock> lock;
  std::optional<std::string> missing;
};

/// What runs have left of a monitor, or are doing with it.
struct MonitorUse {
  bool underWay = false;
  /// The look-up table that was active before a run that was killed.
  std::optional<unsigned> pending;

  static MonitorUse of(const MonitorName& name);
  /// For people; empty when there is nothing to say.
  std::string sentence(const MonitorName& name) const;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_RUN_LOCK_H_
