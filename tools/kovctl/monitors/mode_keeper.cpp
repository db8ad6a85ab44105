// SPDX-License-Identifier: MIT
#include "monitors/mode_keeper.h"

#include <fmt/format.h>

#include <charconv>

#include "monitors/java_start.h"
#include "system/files.h"

namespace kovctl {
namespace {

// Names come from monitors; a file name takes only what is harmless.
std::string fileOf(const MonitorName& name) {
  std::string file = name.model + "-" + name.serial;
  for (char& c : file) {
    const bool harmless = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                          (c >= 'a' && c <= 'z') || c == '-' || c == '_';
    if (!harmless) c = '_';
  }
  return sys::stateFolder() + "/" + file + ".mode";
}

}  // namespace

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
    : monitor(watched), monitorName(name), before(watched.getCalModeValue()) {}

void ModeKeeper::arm() {
  // What a killed run has left stays until a run ends in order: it is the older state.
  if (remembered(monitorName)) return;
  try {
    sys::makeFolder(sys::stateFolder());
    sys::writeWhole(fileOf(monitorName), fmt::format("{}\n", before));
  } catch (const std::exception&) {
    // Only a run that is killed would need it.
  }
}

ModeResult ModeKeeper::restore() {
  const ModeResult result = activateMode(monitor, before);
  if (result.restored) forget();
  return result;
}

void ModeKeeper::forget() { forget(monitorName); }

std::optional<unsigned> ModeKeeper::remembered(const MonitorName& name) {
  const auto text = sys::readWhole(fileOf(name));
  unsigned mode = 0;
  if (!text) return std::nullopt;
  const auto result = std::from_chars(text->data(), text->data() + text->size(), mode);
  if (result.ec != std::errc()) return std::nullopt;
  return mode;
}

void ModeKeeper::forget(const MonitorName& name) { sys::removeFile(fileOf(name)); }

}  // namespace kovctl
