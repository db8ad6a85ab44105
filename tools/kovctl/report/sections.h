// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_SECTIONS_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_SECTIONS_H_

#include <string>
#include <vector>

#include "metrics/evaluation.h"
#include "metrics/verdict.h"
#include "record/run_record.h"
#include "report/chart.h"

namespace kovctl {

/// What the sections are made from.
struct ReportView {
  const RunRecord& record;
  Evaluation evaluation;
  Verdict verdict;
  std::vector<HistoryPoint> history;  ///< earlier runs, oldest first
};

/// "Calibration report" or "Verification report".
std::string reportName(const RunRecord& record);

/// "2026-11-21 08:25:49 UTC" for the record's own form; any other text as it is.
std::string readableTime(const std::string& time);

// Each gives one section element, or nothing where the record has nothing for it.
std::string headerSection(const ReportView& view);
std::string verdictSection(const ReportView& view);
std::string identitySection(const ReportView& view);
std::string targetSection(const ReportView& view);
std::string chartsSection(const std::vector<Chart>& charts);
std::string historySection(const ReportView& view);
std::string timelineSection(const ReportView& view);
std::string pointsSection(const ReportView& view);
std::string sourcesSection(const ReportView& view);
std::string versionsSection(const ReportView& view);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_SECTIONS_H_
