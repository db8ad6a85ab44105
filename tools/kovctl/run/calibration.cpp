// SPDX-License-Identifier: MIT
#include "run/calibration.h"

#include <fmt/format.h>

#include <cmath>

#include "cli/early_interrupt.h"
#include "monitors/java_start.h"
#include "record/patch_roles.h"
#include "run/arming.h"
#include "run/cancel_watch.h"
#include "run/check_measurement.h"
#include "run/known_tables.h"
#include "run/library_target.h"
#include "run/record_start.h"
#include "run/run_end.h"
#include "system/interrupts.h"

namespace kovctl {
namespace {

std::string errorText(const lumora::kov::KovCalibrator& calibrator, OmError error) {
  const std::string message = calibrator.getErrorMsg();
  if (!message.empty()) return message;
  if (error == OM_OK) return "it ended without a result";
  if (error == OM_ERR_COMMUNICATION) return "the monitor does not answer or is no longer attached";
  return "the Java library gave no reason";
}

}  // namespace

Calibration::Calibration(Context& hostContext, const RunOptions& runOptions,
                         const TargetRequest& wanted, const ChosenMonitor& monitor)
    : context(hostContext),
      options(runOptions),
      request(wanted),
      chosen(monitor),
      lock(monitor.name),
      keeper(monitor.monitor, monitor.name),
      lastInterrupt(hostContext, keeper, monitor.name),
      // Kept: after a run that was killed, the table that was active before it and not the one that
      // it happened to leave: that is the one people see and mean. Refusing would leave a monitor
      // that is calibrated by a script every morning uncalibrated.
      lut(runOptions.lut.value_or(static_cast<int>(keeper.mode()))),
      progress(makeProgress(hostContext)),
      station(hostContext, runOptions.instrument, runOptions.screen, monitor.name.serial),
      record(startRecord(RunKind::kCalibrate, monitor, lut, wanted, runOptions,
                         station.instrument().info())),
      delegate(station, progress, clock, record.patches),
      calibrator(monitor.name.model, monitor.name.serial, lut, station.instrument().handle(),
                 runOptions.operatorName, "", &delegate) {}

ExitCode Calibration::perform() {
  sayPending(context, record, keeper);
  prepare();
  throwIfInterrupted();
  ExitCode code = ExitCode::kOk;
  try {
    code = run();
  } catch (const std::exception& reason) {
    // Whatever it was: what has been changed is put back.
    progress.end();
    code = takeFailure(context, record, asFailure(reason));
    if (keeper.isArmed()) putBack();
  }
  return endRun(context, record, options, code);
}

ExitCode Calibration::run() {
  const OmError error = execute();
  progress.end();
  assignCalibrationRoles(record.patches);
  // Kept: execute() alone does not tell. The monitor may give a calibration up before its request
  // to abort has returned, and that ends as OM_OK without a new table; and a cancellation that came
  // while the results were being delivered has changed nothing. The results are what counts.
  const bool done = delegate.hasFinished() && (error == OM_OK || error == OM_ERR_CANCELED);
  return done ? finish() : endEarly(error);
}

// Nothing has been written to the monitor when this fails.
void Calibration::prepare() {
  if (calibrator.registerCallback() != OM_OK) {
    throw Failure(ExitCode::kRuntime,
                  "the plug-in does not accept the native callbacks: " + calibrator.getErrorMsg(),
                  {"\"kovctl doctor\" finds out why."});
  }
  const OmError error = calibrator.setCalibrationTarget(
      libraryTarget(request), libraryCurve(request.target), pocketjson::Value(),
      request.target.ambient.value_or(0.0), false);
  if (error == OM_OK) return;
  if (error == OM_ERR_JAVA) refuseTableWithoutHistory(chosen.monitor, lut);
  throw Failure(exitCodeOf(error), "the target was not accepted: " + errorText(calibrator, error),
                {"Nothing was changed on the monitor."});
}

OmError Calibration::execute() {
  armRun(context, record, keeper, lock);
  event(fmt::format("calibration of look-up table {} begins; table {} was active", lut,
                    keeper.active()));
  progress.begin(fmt::format("Calibrating {}", chosen.name.text()), "calibration", std::nullopt);
  CancelWatch watch(calibrator, progress,
                    [this] { return isInterrupted() || delegate.wantsCancel(); });
  delegate.setAwaitCancel([&watch] { return watch.awaitCanceled(); });
  return calibrator.execute();
}

ExitCode Calibration::finish() {
  event("calibration finished");
  if (isInterrupted()) {
    record.warnings.push_back("The calibration had finished before it could be canceled.");
  }
  takeCalibrationData();
  activateResult();
  if (record.result.monitorState == MonitorState::kUnknown) return ExitCode::kCommunication;
  const ExitCode code = checkResult();
  if (options.keepMode && keeper.isArmed()) {
    const ModeResult back = keeper.restore();
    record.result.monitorStateText += "; then " + back.sentence;
    if (!back.restored) record.result.monitorState = MonitorState::kUnknown;
    if (!back.restored) return ExitCode::kRestoreFailed;
  }
  return code;
}

void Calibration::takeCalibrationData() try {
  const pocketjson::Value data = calibrator.getCalibrationData();
  const pocketjson::Value& lmin = data["calibrationTarget"]["lmin"];
  const pocketjson::Value& sensor = data["photoSensorAD"];
  if (std::isfinite(lmin.asDouble()) && lmin.type() != pocketjson::Value::Null)
    record.result.lmin = lmin.asDouble();
  if (sensor.type() != pocketjson::Value::Null) record.result.photoSensor = sensor.asInt();
} catch (const std::exception& reason) {
  record.warnings.push_back(std::string("The calibration data could not be read: ") +
                            reason.what());
}

void Calibration::activateResult() {
  const ModeResult active = activateMode(chosen.monitor, static_cast<unsigned>(lut));
  record.result.monitorState = active.restored ? MonitorState::kCalibrated : MonitorState::kUnknown;
  record.result.monitorStateText = fmt::format(
      "calibrated: look-up table {} holds the new calibration; {}", lut, active.sentence);
  event(active.sentence);
  const bool returns = options.keepMode && keeper.mode() != static_cast<unsigned>(lut);
  if (active.restored && !returns) keeper.release(static_cast<unsigned>(lut));
}

// Measured independently of what the library has measured in its run.
ExitCode Calibration::checkResult() {
  if (options.checkPoints == 0 || isInterrupted()) return ExitCode::kOk;
  try {
    if (!measureGrayScale(station, progress, clock, record, options.checkPoints,
                          "Checking " + chosen.name.text())) {
      record.warnings.push_back("The check after the calibration was interrupted.");
    }
    event("check finished");
    return ExitCode::kOk;
  } catch (const Failure& reason) {
    return takeFailure(context, record, reason);
  }
}

ExitCode Calibration::endEarly(OmError error) {
  const bool canceled = isInterrupted() || delegate.failure().has_value();
  // After a cancellation that it knows of, execute() has waited already.
  const bool hasSettled = error == OM_ERR_CANCELED;
  std::string reason = errorText(calibrator, error);
  if (error == OM_OK) error = canceled ? OM_ERR_CANCELED : OM_ERR_JAVA;
  ExitCode code = exitCodeOf(error);
  if (error == OM_ERR_JAVA && !canceled && isMissingTable(chosen.monitor, lut)) {
    code = ExitCode::kUsage;
    reason = fmt::format("the monitor has no look-up table {}", lut);
  } else if (delegate.failure()) {
    code = delegate.failure()->code;
    reason = delegate.failure()->what();
  } else if (isInterrupted()) {
    code = ExitCode::kCanceled;
    reason = "canceled";
  }
  record.result.canceled = canceled;
  record.result.error = RunError{error, nameOf(error), reason};
  context.out().error(code == ExitCode::kCanceled ? "the calibration was canceled"
                                                  : "the calibration has failed: " + reason);
  event("ended early: " + reason);
  if (canceled && !hasSettled) settle(progress);
  return putBack() || !canceled ? code : ExitCode::kRestoreFailed;
}

bool Calibration::putBack() {
  const ModeResult back = keeper.restore();
  record.result.monitorState = back.restored ? MonitorState::kRestored : MonitorState::kUnknown;
  record.result.monitorStateText =
      (back.restored ? "as before the calibration: " : "NOT KNOWN: ") + back.sentence;
  event(back.sentence);
  return back.restored;
}

void Calibration::event(const std::string& text) {
  record.timeline.push_back({clock.now(), text});
  context.out().detail(text);
  context.out().event({{"event", "note"}, {"text", text}});
}

bool Calibration::isInterrupted() const { return sys::interruptCount() > 0; }

}  // namespace kovctl
