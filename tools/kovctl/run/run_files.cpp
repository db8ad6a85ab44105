// SPDX-License-Identifier: MIT
#include "run/run_files.h"

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <utility>

#include "failure.h"
#include "metrics/evaluation.h"
#include "metrics/verdict.h"
#include "record/run_record_json.h"
#include "report/report.h"
#include "system/files.h"
#include "system/utf8_path.h"

namespace kovctl {
namespace {

// "OR-C321-30210045-20261121T082549Z"
std::string baseName(const RunRecord& record) {
  std::string name = record.monitor.model + "-" + record.monitor.serial + "-";
  for (const char c : record.startTime) {
    if (c != '-' && c != ':') name += c;
  }
  for (char& c : name) {
    const bool harmless = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                          (c >= 'a' && c <= 'z') || c == '-' || c == '_' || c == '.';
    if (!harmless) c = '_';
  }
  return name;
}

HistoryPoint pointOf(const RunRecord& run) {
  const Evaluation evaluation = evaluate(run);
  HistoryPoint point;
  point.time = run.startTime;
  point.source = "record";
  if (run.monitor.lutIndex) point.lutNumber = *run.monitor.lutIndex + 1;
  point.workingHours = run.monitor.workingHours;
  if (run.target.lmax > 0.0) point.targetLmax = run.target.lmax;
  point.measuredLmax = evaluation.lmax;
  point.measuredLmin = evaluation.lmin;
  point.photoSensor = run.result.photoSensor;
  if (evaluation.deciding) point.maxDeviation = evaluation.deciding->largestDeviation;
  point.passed = judge(run, evaluation).outcome == Outcome::kPass;
  point.performer = run.operatorName;
  point.instrument = run.instrument.name;
  return point;
}

void writeOne(Context& context, FilesWritten& files, const std::string& path,
              const std::string& content) {
  try {
    sys::writeWhole(path, content);
    files.paths.push_back(path);
    context.out().note("Written: " + path);
  } catch (const std::exception& reason) {
    files.allWritten = false;
    context.out().error(std::string("nothing was written to ") + reason.what());
  }
}

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
  throw Failure(ExitCode::kOutput, "nothing can be written to " + path + reason,
                {"Nothing was measured, and nothing changed on the monitor."});
}

void tryFile(const std::string& path) {
  if (sys::isFolder(path)) refuse(path, ": it is a folder");
  if (sys::isDevice(path)) return;
  try {
    sys::tryWriting(path);
  } catch (const std::runtime_error& reason) {
    const std::string text = reason.what();
    refuse(path, text.rfind(path, 0) == 0 ? text.substr(path.size()) : ": " + text);
  }
}

// Its own and each other's: none may take the place of another.
void checkNames(const RunOptions& options) {
  const std::pair<const char*, const std::string*> files[] = {{"--report", &options.report},
                                                              {"--record", &options.record},
                                                              {"--target", &options.target.file}};
  for (std::size_t i = 0; i < std::size(files); ++i) {
    for (std::size_t j = i + 1; j < std::size(files); ++j) {
      const auto& [oneOption, one] = files[i];
      const auto& [otherOption, other] = files[j];
      if (one->empty() || other->empty() || !isSameFile(*one, *other)) continue;
      throw Failure(ExitCode::kUsage,
                    std::string(oneOption) + " and " + otherOption + " are the same file: " + *one);
    }
  }
}

}  // namespace

bool isSameFile(const std::string& one, const std::string& other) {
  std::error_code none;
  const auto first = std::filesystem::absolute(sys::pathOf(one), none);
  const auto second = std::filesystem::absolute(sys::pathOf(other), none);
  // Devices may be named as often as one likes; a folder serves for neither.
  if (sys::isDevice(one) || sys::isFolder(one)) return false;
  if (sys::exists(one)) return std::filesystem::equivalent(first, second, none);
  return std::filesystem::weakly_canonical(first, none) ==
         std::filesystem::weakly_canonical(second, none);
}

void checkRunFiles(const RunOptions& options) {
  checkNames(options);
  for (const std::string& path : {options.report, options.record}) {
    if (!path.empty()) tryFile(path);
  }
  if (options.reportFolder.empty()) return;
  std::error_code error;
  std::filesystem::create_directories(sys::pathOf(options.reportFolder), error);
  if (!sys::isFolder(options.reportFolder)) {
    refuse(options.reportFolder, error ? ": " + error.message() : ": it is no folder");
  }
  tryFile(options.reportFolder + "/kovctl");
}

std::vector<HistoryPoint> earlierRuns(const std::string& folder, const RunRecord& of) {
  std::vector<HistoryPoint> points;
  std::error_code unreadable;
  for (const auto& entry : std::filesystem::directory_iterator(sys::pathOf(folder), unreadable)) {
    std::error_code none;
    // Nothing that could be waited for without end, such as a pipe.
    if (entry.path().extension() != ".json" || !entry.is_regular_file(none)) continue;
    const auto text = sys::readWhole(sys::textOf(entry.path()));
    if (!text) continue;
    try {
      const RunRecord run = readRunRecord(*text);
      const bool same = run.monitor.model == of.monitor.model &&
                        run.monitor.serial == of.monitor.serial &&
                        run.monitor.lutIndex == of.monitor.lutIndex;
      if (same && run.startTime < of.startTime) points.push_back(pointOf(run));
    } catch (const RunRecordError&) {
      // Another program's file.
    }
  }
  return points;
}

FilesWritten writeRunFiles(Context& context, const RunRecord& record, const RunOptions& options) {
  FilesWritten files;
  std::vector<std::string> reports;
  std::vector<std::string> records;
  if (!options.report.empty()) reports.push_back(options.report);
  if (!options.record.empty()) records.push_back(options.record);
  if (!options.reportFolder.empty()) {
    const std::string base = options.reportFolder + "/" + baseName(record);
    reports.push_back(base + ".html");
    records.push_back(base + ".json");
  }
  // The data first: a report can be drawn from it again.
  if (!records.empty()) {
    const std::string text = writeRunRecord(record);
    for (const std::string& path : records) writeOne(context, files, path, text);
  }
  if (!reports.empty()) {
    const auto earlier = options.reportFolder.empty() ? std::vector<HistoryPoint>{}
                                                      : earlierRuns(options.reportFolder, record);
    const std::string html = renderReport(record, earlier);
    for (const std::string& path : reports) writeOne(context, files, path, html);
  }
  return files;
}

}  // namespace kovctl
