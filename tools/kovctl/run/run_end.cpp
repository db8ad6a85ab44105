// SPDX-License-Identifier: MIT
#include "run/run_end.h"

#include <fmt/format.h>

#include "record/run_record_json.h"
#include "run/measurements.h"
#include "run/run_files.h"

namespace kovctl {
namespace {

ExitCode judged(ExitCode code, const RunRecord& record, const Verdict& verdict) {
  if (code != ExitCode::kOk || verdict.outcome == Outcome::kPass) return code;
  // Where nothing is to be judged, nothing can be outside.
  return record.limitsProfile.empty() ? code : ExitCode::kOutsideLimits;
}

// What KovCalibrator::getCalibrationData() gave; a check of the monitor gives nothing.
void sayCalibrationData(Console& console, const RunResult& result) {
  if (result.photoSensor) {
    console.note(fmt::format("Calibration data: backlight sensor {}", *result.photoSensor));
  }
  if (result.lmin) {
    console.note(fmt::format("Calibration data: minimum luminance {:.3f} cd/m²", *result.lmin));
  }
}

void sayResult(Context& context, const RunRecord& record, const Verdict& verdict) {
  Console& console = context.out();
  if (!record.patches.empty()) console.print(verdictText(console, verdict));
  sayCalibrationData(console, record.result);
  for (const std::string& warning : record.warnings) console.warn(warning);
  if (record.simulated && console.isText()) console.note("This run was simulated.");
  const std::string sentence = "Monitor state: " + record.result.monitorStateText;
  if (record.result.monitorState == MonitorState::kUnknown) {
    console.error(sentence);
  } else {
    console.note(sentence);
  }
}

}  // namespace

ExitCode endRun(Context& context, RunRecord& record, const RunOptions& options, ExitCode code) {
  record.endTime = utcNow();
  const Verdict verdict = judge(record, evaluate(record));
  ExitCode final = judged(code, record, verdict);
  sayResult(context, record, verdict);
  const FilesWritten files = writeRunFiles(context, record, options);
  if (!files.allWritten && final == ExitCode::kOk) final = ExitCode::kOutput;
  Json document = documentOf("run");
  document["exitCode"] = static_cast<int>(final);
  document["exitName"] = nameOf(final);
  document["verdict"] = verdictJson(verdict);
  document["files"] = files.paths;
  document["record"] = toJson(record);
  context.out().document(document);
  return final;
}

}  // namespace kovctl
