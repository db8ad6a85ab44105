// SPDX-License-Identifier: MIT
#include "run/check_measurement.h"

#include "failure.h"
#include "system/interrupts.h"

namespace kovctl {

bool measureGrayScale(MeasuringStation& station, Progress& progress, const RunClock& clock,
                      RunRecord& record, int points, const std::string& title) {
  const std::vector<int> levels = evenLevels(points);
  progress.begin(title, "check", points);
  int done = 0;
  try {
    for (const int level : levels) {
      if (sys::interruptCount() > 0) break;
      const Patch patch = Patch::gray(level);
      progress.showPatch(patch);
      station.show(patch);
      const Reading reading = station.measure();
      addMeasurement(record.patches, PatchRole::kVerify, patch, reading, clock.now());
      progress.measured(reading);
      progress.advance(static_cast<double>(++done) / points);
    }
  } catch (const Failure&) {
    progress.end();
    // A reading that an interrupt cut short is not the instrument's fault.
    if (sys::interruptCount() == 0) throw;
  }
  progress.end();
  return done == points;
}

}  // namespace kovctl
