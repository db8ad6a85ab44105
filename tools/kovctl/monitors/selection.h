// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_MONITORS_SELECTION_H_
#define L5KOV_TOOLS_KOVCTL_MONITORS_SELECTION_H_

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "failure.h"

namespace kovctl {

/// The two texts that the library knows a monitor by.
struct MonitorName {
  std::string model;
  std::string serial;

  std::string text() const { return model + ":" + serial; }
  bool operator==(const MonitorName&) const = default;
};

/// A monitor that was found, in its place: the numbers of the others stay what they are when one
/// falls silent.
struct Candidate {
  MonitorName name;
  /// Why it did not say its name, if it did not.
  std::optional<Failure> silence;
};

/// "1  MODEL:SERIAL", one line each.
std::vector<std::string> listed(const std::vector<Candidate>& monitors);

/// Which of the monitors a user means: "MODEL:SERIAL" or a beginning of it that fits one monitor
/// only, or the number that the list shows, counted from 1. Letter case counts.
///
/// A whole name wins over a beginning, and a beginning over a number.
/// @throws Failure(kMonitor) with the monitors that may be meant, when there is none or several,
///         or the silence of a monitor that may be meant: another one is never taken for it
std::size_t selectMonitor(const std::vector<Candidate>& monitors, std::string_view wanted);

/// The only monitor, where none is named. @throws Failure as above
std::size_t onlyMonitor(const std::vector<Candidate>& monitors);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_MONITORS_SELECTION_H_
