// SPDX-License-Identifier: MIT
#include "run/known_tables.h"

#include <fmt/format.h>

#include <set>
#include <string>

#include "failure.h"
#include "monitors/mode_keeper.h"

namespace kovctl {
namespace {

// Counted from 0.
std::set<int> tablesInHistory(const lumora::Monitor& monitor) {
  std::set<int> tables;
  for (const auto& entry : monitor.getExtractCalibrationData()) tables.insert(entry.lutNumber - 1);
  return tables;
}

}  // namespace

void refuseTableWithoutHistory(const lumora::Monitor& monitor, int lut) {
  const std::set<int> tables = tablesInHistory(monitor);
  if (tables.empty()) {
    throw Failure(ExitCode::kJava,
                  "the monitor keeps no history of calibrations, which the Java library needs to "
                  "calibrate it",
                  {"Nothing was changed on the monitor."});
  }
  if (tables.count(lut) != 0) return;
  std::string known;
  for (const int table : tables) known += (known.empty() ? "" : ", ") + std::to_string(table);
  throw Failure(
      ExitCode::kUsage,
      fmt::format("the monitor has no look-up table {} that it knows how to calibrate", lut),
      {"It has calibrated " + known + ".", "Nothing was changed on the monitor."});
}

bool isMissingTable(const lumora::Monitor& monitor, int lut) try {
  if (tablesInHistory(monitor).count(lut) != 0) return false;
  return activateMode(monitor, static_cast<unsigned>(lut)).noSuchTable;
} catch (const std::exception&) {
  return false;
}

}  // namespace kovctl
