// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_CHECK_MEASUREMENT_H_
#define L5KOV_TOOLS_KOVCTL_RUN_CHECK_MEASUREMENT_H_

#include <string>

#include "output/progress.h"
#include "record/run_record.h"
#include "run/measurements.h"
#include "run/measuring_station.h"

namespace kovctl {

/// Measures the gray scale as it is on the screen now and adds it to the record. False when an
/// interrupt ended it. @throws Failure(kInstrument)
bool measureGrayScale(MeasuringStation& station, Progress& progress, const RunClock& clock,
                      RunRecord& record, int points, const std::string& title);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_CHECK_MEASUREMENT_H_
