// SPDX-License-Identifier: MIT
#include "run/run_end.h"

#include <fmt/format.h>

#include "monitors/mode_note.h"
#include "record/run_record_json.h"
#include "run/measurements.h"
#include "run/run_files.h"

namespace kovctl {
namespace {

// What KovCalibrator::getCalibrationData() gave; a check of the monitor gives nothing.
void sayCalibrationData(Console& console, const RunResult& result) {
  if (result.photoSensor) {
    console.note(fmt::format("Calibration data: backlight sensor {}", *result.photoSensor));
  }
  if (result.lmin) {
    console.note(fmt::format("Calibration data: minimum luminance {:.3f} cd/m²", *result.lmin));
  }
}

// Where a run that was killed has left a note that this one could not settle.
void warnOfNote(RunRecord& record) {
  const MonitorName name{record.monitor.model, record.monitor.serial};
  const auto left = ModeNote::read(name);
  if (left) record.warnings.push_back(ModeNote{name.text(), *left}.sentence() + ".");
}

void sayResult(Context& context, const RunRecord& record, const Verdict& verdict) {
  Console& console = context.out();
  if (!record.patches.empty()) console.printStyled(verdictText(console, verdict));
  sayCalibrationData(console, record.result);
  for (const std::string& warning : record.warnings) console.warn(warning);
  if (record.simulated && console.isText()) console.note("This run was simulated.");
  const std::string sentence = "Monitor state: " + record.result.monitorStateText;
  // -q must not hide what has become of the monitor when a run has not gone as it should.
  const bool asExpected = record.result.monitorState != MonitorState::kUnknown &&
                          !record.result.canceled && !record.result.error;
  if (asExpected) {
    console.note(sentence);
  } else {
    console.error(sentence);
  }
}

// A number that is none, from wherever it came, must not end a run before all else is said.
Json recordJson(const RunRecord& record, ExitCode code) try {
  return toJson(record);
} catch (const RunRecordError& reason) {
  const bool isDone = code == ExitCode::kOk || code == ExitCode::kOutsideLimits;
  throw Failure(isDone ? ExitCode::kOutput : code,
                std::string("what was measured cannot be written: ") + reason.what());
}

}  // namespace

ExitCode takeFailure(Context& context, RunRecord& record, const Failure& failure) {
  record.result.error =
      RunError{static_cast<int>(failure.code), nameOf(failure.code), failure.what()};
  context.out().error(failure.what());
  return failure.code;
}

ExitCode judgedCode(ExitCode code, const RunRecord& record, const Verdict& verdict) {
  if (code != ExitCode::kOk || verdict.outcome == Outcome::kPass) return code;
  return record.limitsProfile.empty() ? code : ExitCode::kOutsideLimits;
}

void sayPending(Context& context, RunRecord& record, const ModeKeeper& keeper) {
  if (!keeper.pending()) return;
  const std::string name = record.monitor.model + ":" + record.monitor.serial;
  const std::string sentence = ModeNote{name, *keeper.pending()}.sentence();
  context.out().warn(sentence);
  record.timeline.push_back({0.0, sentence});
}

ExitCode endRun(Context& context, RunRecord& record, const RunOptions& options, ExitCode code) {
  record.endTime = utcNow();
  warnOfNote(record);
  const Verdict verdict = judge(record, evaluate(record));
  ExitCode final = judgedCode(code, record, verdict);
  sayResult(context, record, verdict);
  const Json recorded = recordJson(record, final);
  const FilesWritten files = writeRunFiles(context, record, options);
  if (!files.allWritten && final == ExitCode::kOk) final = ExitCode::kOutput;
  Json document = documentOf("run");
  document["exitCode"] = static_cast<int>(final);
  document["exitName"] = nameOf(final);
  document["verdict"] = verdictJson(verdict);
  document["files"] = files.paths;
  document["record"] = recorded;
  context.out().document(document);
  return final;
}

}  // namespace kovctl
