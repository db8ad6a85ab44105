// SPDX-License-Identifier: MIT
#include "monitors/mode_keeper.h"

#include <fmt/format.h>

#include "monitors/java_start.h"
#include "monitors/mode_note.h"

namespace kovctl {

ModeResult activateMode(const lumora::Monitor& monitor, unsigned mode) try {
  monitor.setCalModeValue(mode);
  const unsigned now = monitor.getCalModeValue();
  if (now == mode) {
    return {true, fmt::format("look-up table {} is active, read back from the monitor", now)};
  }
  return {false,
          fmt::format("look-up table {} should be active, but the monitor says {}", mode, now)};
} catch (const lumora::kov::java::JavaException& exception) {
  if (exception.getClassName().find("IndexOutOfBoundsException") != std::string::npos) {
    return {false, fmt::format("the monitor has no look-up table {}", mode), true};
  }
  return {false,
          fmt::format("look-up table {} could not be activated ({})", mode, textOf(exception))};
} catch (const std::exception& exception) {
  return {false,
          fmt::format("look-up table {} could not be activated ({})", mode, exception.what())};
}

ModeKeeper::ModeKeeper(const lumora::Monitor& watched, const MonitorName& name)
    : monitor(watched),
      monitorName(name),
      found(watched.getCalModeValue()),
      pendingMode(ModeNote::read(name)) {}

std::optional<std::string> ModeKeeper::arm() {
  done = Change::kUnderWay;
  // What a killed run has left stays: it is the older state.
  if (pendingMode) return std::nullopt;
  try {
    ModeNote::write(monitorName, mode());
    return std::nullopt;
  } catch (const std::exception& reason) {
    return reason.what();
  }
}

ModeResult ModeKeeper::restore() {
  const ModeResult result = activateMode(monitor, mode());
  if (!result.restored) return result;
  settle(mode());
  done = Change::kPutBack;
  return result;
}

// Kept: a killed run's note that says another table stays, whatever this run came to. Only that
// table's return, or a table that a user names to "kovctl restore", settles it.
void ModeKeeper::settle(unsigned active) {
  if (!pendingMode || *pendingMode == active) ModeNote::remove(monitorName);
}

void ModeKeeper::release(unsigned active) {
  settle(active);
  done = Change::kKept;
}

}  // namespace kovctl
