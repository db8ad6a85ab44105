// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_SELECTION_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_SELECTION_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kovctl {

/// The two texts that the library knows a monitor by.
struct MonitorName {
  std::string model;
  std::string serial;

  std::string text() const { return model + ":" + serial; }
  bool operator==(const MonitorName&) const = default;
};

/// Which of the monitors a user means: "MODEL:SERIAL" or a beginning of it that fits one monitor
/// only, or the number that the list shows, counted from 1. Letter case counts.
///
/// A whole name wins over a beginning, and a beginning over a number.
/// @throws Failure(kMonitor) with the monitors that may be meant, when there is none or several
std::size_t selectMonitor(const std::vector<MonitorName>& monitors, std::string_view wanted);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_SELECTION_H_
