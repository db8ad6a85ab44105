// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_HISTORY_VIEW_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_HISTORY_VIEW_H_

#include <optional>
#include <string_view>
#include <vector>

#include "metrics/evaluation.h"
#include "metrics/verdict.h"
#include "record/run_record.h"

namespace kovctl {

/// Seconds since 1970 of a history point's time: the record's own form, or the form
/// "2026-11-21 08:25:49" without a zone, which is drawn as if it were UTC.
std::optional<double> momentOf(std::string_view time);

/// The record's history and `more`, in order of time and without repetitions; points whose time
/// cannot be read come first, in the order given.
std::vector<HistoryPoint> allHistory(const RunRecord& record,
                                     const std::vector<HistoryPoint>& more);

/// This run as a point of the history.
HistoryPoint asHistory(const RunRecord& record, const Evaluation& evaluation,
                       const Verdict& verdict);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_HISTORY_VIEW_H_
