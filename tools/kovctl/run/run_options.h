// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_RUN_OPTIONS_H_
#define L5KOV_TOOLS_KOVCTL_RUN_RUN_OPTIONS_H_

#include <optional>
#include <string>

#include "display/patch_screen.h"
#include "instrument/instrument.h"
#include "record/run_record.h"
#include "target/target_request.h"

namespace kovctl {

/// What calibrate and verify are told.
struct RunOptions {
  std::string monitor;
  std::optional<int> lut;  ///< position, from 0; absent: the active one
  TargetFlags target;
  std::string limits;
  std::string operatorName;
  InstrumentOptions instrument;
  ScreenOptions screen;
  int checkPoints = 52;  ///< 52, 18 or 0: what is measured once the table is loaded
  bool keepMode = false;
  bool dryRun = false;
  std::string report;        ///< HTML file
  std::string record;        ///< JSON file
  std::string reportFolder;  ///< both, named after monitor and time; earlier ones make the trend
};

/// What is measured once the table is loaded; a run that only measures measures something.
inline int checkPointsOf(RunKind kind, const RunOptions& options) {
  constexpr int kFewest = 18;
  return kind == RunKind::kVerify && options.checkPoints == 0 ? kFewest : options.checkPoints;
}

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_RUN_OPTIONS_H_
