// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_CALIBRATION_H_
#define L5KOV_TOOLS_KOVCTL_RUN_CALIBRATION_H_

#include <l5kov.h>

#include "cli/context.h"
#include "monitors/found_monitors.h"
#include "monitors/mode_keeper.h"
#include "monitors/run_lock.h"
#include "output/progress.h"
#include "run/last_interrupt.h"
#include "run/measuring_delegate.h"
#include "run/measuring_station.h"
#include "run/run_options.h"

namespace kovctl {

/// One calibration of one monitor, from the target to a monitor whose state is known. Made and used
/// by one thread.
class Calibration {
 public:
  Calibration(Context& hostContext, const RunOptions& runOptions, const TargetRequest& wanted,
              const ChosenMonitor& monitor);

  ExitCode perform();

 private:
  void prepare();
  ExitCode run();
  OmError execute();
  ExitCode finish();
  ExitCode endEarly(OmError error);
  /// Tells whether it has worked.
  bool putBack();
  void takeCalibrationData();
  void activateResult();
  ExitCode checkResult();
  void event(const std::string& text);
  bool isInterrupted() const;

  Context& context;
  const RunOptions& options;
  const TargetRequest& request;
  ChosenMonitor chosen;
  RunLock lock;
  ModeKeeper keeper;
  LastInterrupt lastInterrupt;
  int lut;
  RunClock clock;
  Progress progress;
  MeasuringStation station;
  RunRecord record;
  MeasuringDelegate delegate;
  lumora::kov::KovCalibrator calibrator;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_CALIBRATION_H_
