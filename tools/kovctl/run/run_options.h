// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_RUN_OPTIONS_H_
#define L5KOV_TOOLS_KOVCTL_RUN_RUN_OPTIONS_H_

#include <optional>
#include <string>

#include "display/patch_screen.h"
#include "instrument/instrument.h"
#include "metrics/evaluation.h"
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
  /// 52, 18 or, of a calibration, 0: what is measured once the table is loaded
  int checkPoints = kInformingPoints;
  bool keepMode = false;
  bool dryRun = false;
  std::string report;        ///< HTML file
  std::string record;        ///< JSON file
  std::string reportFolder;  ///< both, named after monitor and time; earlier ones make the trend
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_RUN_OPTIONS_H_
