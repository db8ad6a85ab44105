// SPDX-License-Identifier: MIT
#include "report/report.h"
#include "commands/commands.h"
#include "failure.h"
#include "metrics/evaluation.h"
#include "metrics/limits.h"
#include "metrics/verdict.h"
#include "record/run_record_json.h"
#include "run/run.h"
#include "run/run_end.h"
#include "run/run_files.h"
#include "system/files.h"

namespace kovctl {
namespace {

struct ReportOptions {
  std::string record;
  std::string output;
  std::string limits;
  std::string earlier;
};

RunRecord readRecord(const std::string& path) {
  const auto text = sys::readWhole(path);
  if (!text) throw Failure(ExitCode::kUsage, "cannot read " + path);
  try {
    return readRunRecord(*text);
  } catch (const RunRecordError& error) {
    throw Failure(ExitCode::kUsage, path + ": " + error.what());
  }
}

// "run.json" becomes "run.html".
std::string besides(const std::string& record) {
  const std::size_t dot = record.rfind(".json");
  return (dot != std::string::npos && dot + 5 == record.size() ? record.substr(0, dot) : record) +
         ".html";
}

ExitCode drawReport(Context& context, const ReportOptions& options) {
  RunRecord record = readRecord(options.record);
  if (!options.limits.empty()) {
    RunOptions limits;
    limits.limits = options.limits;
    checkLimits(limits);
    record.limitsProfile = options.limits == "none" ? "" : options.limits;
  }
  const std::string path = options.output.empty() ? besides(options.record) : options.output;
  if (isSameFile(path, options.record)) {
    throw Failure(ExitCode::kUsage, path + " is the record itself, which a report must not replace",
                  {"-o and another name leaves it."});
  }
  // It may be the report as it was signed; who wants another in its place says so.
  if (options.output.empty() && sys::exists(path)) {
    throw Failure(ExitCode::kUsage, path + " is there already",
                  {"-o " + path + " overwrites it; another name leaves it."});
  }
  if (!options.earlier.empty() && !sys::isFolder(options.earlier)) {
    throw Failure(ExitCode::kUsage, "--earlier " + options.earlier + " is no folder");
  }
  const auto earlier =
      options.earlier.empty() ? std::vector<HistoryPoint>{} : earlierRuns(options.earlier, record);
  try {
    sys::writeWhole(path, renderReport(record, earlier));
  } catch (const std::exception& reason) {
    throw Failure(ExitCode::kOutput, std::string("no report was written to ") + reason.what());
  }
  const Verdict verdict = judge(record, evaluate(record));
  const ExitCode code = judgedCode(ExitCode::kOk, record, verdict);
  context.out().printStyled(verdictText(context.out(), verdict));
  context.out().note("Written: " + path);
  Json document = documentOf("report");
  document["file"] = path;
  document["verdict"] = verdictJson(verdict);
  context.out().document(document);
  return code;
}

}  // namespace

void addReportCommand(CLI::App& program, Context& context) {
  CLI::App* const command =
      program.add_subcommand("report", "Draw the report of a run again from its record");
  const auto options = std::make_shared<ReportOptions>();
  command->add_option("FILE", options->record, "Record (JSON) of a run")->required();
  command
      ->add_option("-o,--output", options->output,
                   "The report (FILE with .html, unless that is there)")
      ->type_name("FILE");
  command->add_option("--limits", options->limits, "Judge by this profile instead of the record's")
      ->type_name("NAME");
  command->add_option("--earlier", options->earlier, "Folder with earlier records, for the trend")
      ->type_name("FOLDER");
  command->callback([&context, options] {
    context.command = [&context, options] { return drawReport(context, *options); };
  });
}

}  // namespace kovctl
