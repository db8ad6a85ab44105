// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_RUN_CHARTS_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_RUN_CHARTS_H_

#include <optional>
#include <vector>

#include "metrics/evaluation.h"
#include "metrics/verdict.h"
#include "record/run_record.h"
#include "report/chart.h"

namespace kovctl {

// The charts of a run. Nothing where there is nothing to draw.

/// Luminance on a logarithmic axis against level: target, measured, native.
std::optional<Chart> luminanceChart(const RunRecord& record, const Evaluation& evaluation);

/// Deviation of the contrast response with the tolerance band of the limits profile.
std::optional<Chart> deviationChart(const Evaluation& evaluation, const Verdict& verdict);

/// Just noticeable differences for each gray level.
std::optional<Chart> jndChart(const Evaluation& evaluation);

/// The white, the grays and the target in u′v′.
std::optional<Chart> whitePointChart(const Evaluation& evaluation);

/// White luminance over time, and the backlight sensor's reading; of points whose time is known.
std::optional<Chart> luminanceTrend(const std::vector<HistoryPoint>& history);
std::optional<Chart> sensorTrend(const std::vector<HistoryPoint>& history);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_RUN_CHARTS_H_
