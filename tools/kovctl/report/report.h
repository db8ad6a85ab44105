// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_REPORT_REPORT_H_
#define L5KOV_TOOLS_KOVCTL_REPORT_REPORT_H_

#include <string>
#include <vector>

#include "record/run_record.h"

namespace kovctl {

/// The report of a run as one HTML file (UTF-8): complete without JavaScript, a network or other
/// files, and forbidden by its own content security policy to ask for any. Every text of the record
/// is escaped. The same record gives the same bytes.
///
/// @param record   its own `history` is drawn too
/// @param history  further points, for instance from records kept on disk; drawn together with
///                 those of the record and written into the data inside the file
/// @throws RunRecordError for a record with a number that is not finite
std::string renderReport(const RunRecord& record, const std::vector<HistoryPoint>& history = {});

/// Whether this build can put zoom and hover into the charts (uPlot was there when it was built).
bool hasInteractiveCharts();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_REPORT_REPORT_H_
