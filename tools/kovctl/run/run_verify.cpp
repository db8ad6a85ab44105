// SPDX-License-Identifier: MIT
#include <fmt/format.h>

#include "cli/early_interrupt.h"
#include "failure.h"
#include "monitors/found_monitors.h"
#include "monitors/java_start.h"
#include "monitors/mode_keeper.h"
#include "monitors/run_lock.h"
#include "run/arming.h"
#include "run/check_measurement.h"
#include "run/last_interrupt.h"
#include "run/record_start.h"
#include "run/run.h"
#include "run/run_end.h"
#include "run/run_files.h"
#include "run/stored_target.h"

namespace kovctl {
namespace {

// Back to the mode from before, whatever the measurement came to.
ExitCode putBack(RunRecord& record, ModeKeeper& keeper, bool switched, ExitCode code) {
  if (!switched) {
    record.result.monitorState = MonitorState::kUnchanged;
    record.result.monitorStateText =
        fmt::format("unchanged: look-up table {} is active", keeper.mode());
    return code;
  }
  const ModeResult back = keeper.restore();
  record.result.monitorState = back.restored ? MonitorState::kRestored : MonitorState::kUnknown;
  record.result.monitorStateText = (back.restored ? "as before: " : "NOT KNOWN: ") + back.sentence;
  return back.restored ? code : ExitCode::kRestoreFailed;
}

struct VerifiedTarget {
  TargetRequest request;
  std::string warning;  ///< what the monitor does not tell about it; empty: nothing is missing
};

// What the command line says, over what the table was calibrated for.
VerifiedTarget targetToVerify(const TargetFlags& flags, const lumora::Monitor& monitor, int lut) {
  if (!flags.file.empty()) return {makeTarget(flags), ""};
  const auto stored = storedTarget(monitor, lut);
  if (!stored) {
    TargetRequest base = defaultTarget();
    // Nobody has asked for a luminance that could be missed.
    base.target.lmax = 0.0;
    return {makeTarget(flags, base),
            "The monitor keeps no target for this table: DICOM between its own black and white is "
            "assumed, where the command line says nothing else."};
  }
  if (stored->target.function == DisplayFunction::kUserDefine && flags.function.empty()) {
    return {readTarget(flags, *stored),
            "The table was calibrated for a user-defined curve, which the monitor does not keep: "
            "its gray scale is not judged. --target names the curve."};
  }
  return {makeTarget(flags, *stored), ""};
}

ExitCode measure(Context& context, const RunOptions& options, const ChosenMonitor& chosen,
                 MeasuringStation& station, RunRecord& record) {
  Progress progress = makeProgress(context);
  const RunClock clock;
  try {
    if (measureGrayScale(station, progress, clock, record, options.checkPoints,
                         "Measuring " + chosen.name.text())) {
      return ExitCode::kOk;
    }
    record.result.canceled = true;
    context.out().error("the measurement was canceled");
    return ExitCode::kCanceled;
  } catch (const std::exception& reason) {
    // Whatever it was: what has been changed is put back.
    progress.end();
    return takeFailure(context, record, asFailure(reason));
  }
}

}  // namespace

ExitCode verify(Context& context, const RunOptions& options) {
  checkLimits(options);
  // What makes no sense is said before anything is searched for.
  readTarget(options.target, defaultTarget());
  chooseInstrument(options.instrument, options.screen);
  checkRunFiles(options);
  std::optional<EarlyInterrupt> early(context);
  const ChosenMonitor chosen = chooseMonitor(context, options.monitor);
  const RunLock lock(chosen.name);
  ModeKeeper keeper(chosen.monitor, chosen.name);
  const int lut = options.lut.value_or(static_cast<int>(keeper.mode()));
  const auto [request, warning] = targetToVerify(options.target, chosen.monitor, lut);
  early.reset();
  throwIfInterrupted();
  const LastInterrupt lastInterrupt(context, keeper, chosen.name);
  MeasuringStation station(context, options.instrument, options.screen, chosen.name.serial);
  RunRecord record =
      startRecord(RunKind::kVerify, chosen, lut, request, options, station.instrument().info());
  if (!warning.empty()) record.warnings.push_back(warning);
  sayPending(context, record, keeper);
  // Not the table that a killed run has left active: that goes back where it was, too.
  throwIfInterrupted();
  const bool switched =
      keeper.active() != static_cast<unsigned>(lut) || keeper.active() != keeper.mode();
  ExitCode code = ExitCode::kOk;
  if (switched) {
    armRun(context, record, keeper, lock);
    const ModeResult active = activateMode(chosen.monitor, static_cast<unsigned>(lut));
    if (!active.restored) {
      context.out().error(active.sentence);
      code = active.noSuchTable ? ExitCode::kUsage : ExitCode::kCommunication;
    }
  }
  if (code == ExitCode::kOk) code = measure(context, options, chosen, station, record);
  return endRun(context, record, options, putBack(record, keeper, switched, code));
}

}  // namespace kovctl
