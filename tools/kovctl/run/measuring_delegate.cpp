// SPDX-License-Identifier: MIT
#include "run/measuring_delegate.h"

#include "system/interrupts.h"

namespace kovctl {

using lumora::kov::PatchRecord;

MeasuringDelegate::MeasuringDelegate(MeasuringStation& measuringStation, Progress& progressDisplay,
                                     const RunClock& runClock, std::vector<PatchResult>& results)
    : station(measuringStation),
      progressShown(progressDisplay),
      clock(runClock),
      patches(results) {}

// The reading that is due stays zero: the library reads nothing once it has been told to stop.
void MeasuringDelegate::giveUp(const Failure& reason) {
  const bool interrupted = sys::interruptCount() > 0;
  if (!failed && !interrupted) failed = reason;
  failing = true;
  if (!awaitCancel()) throw std::runtime_error(reason.what());
}

// The calibration ends here even when the monitor does not take the request to abort.
bool MeasuringDelegate::mustStop() {
  if (sys::interruptCount() > 0) giveUp(Failure(ExitCode::kCanceled, "canceled"));
  return failing;
}

void MeasuringDelegate::showColorPatch(PatchRecord& patch) try {
  const Patch wanted{patch[PatchRecord::kComponent1], patch[PatchRecord::kComponent2],
                     patch[PatchRecord::kComponent3]};
  if (mustStop()) return;
  progressShown.showPatch(wanted);
  station.show(wanted);
} catch (const Failure& reason) {
  giveUp(reason);
}

void MeasuringDelegate::measure(void*, PatchRecord* patch, PatchRecord* result) try {
  if (mustStop()) return;
  const Patch shown{(*patch)[PatchRecord::kComponent1], (*patch)[PatchRecord::kComponent2],
                    (*patch)[PatchRecord::kComponent3]};
  const Reading reading = station.measure();
  addMeasurement(patches, PatchRole::kOther, shown, reading, clock.now());
  progressShown.measured(reading);
  (*result)[PatchRecord::kMeasured1] = reading.luminance;
  if (reading.chromaticity) {
    (*result)[PatchRecord::kMeasured2] = reading.chromaticity->x;
    (*result)[PatchRecord::kMeasured3] = reading.chromaticity->y;
  }
} catch (const Failure& reason) {
  giveUp(reason);
}

void MeasuringDelegate::notifyEvent(std::string event) {
  if (event == "FinishCalibration") finished = true;
}

}  // namespace kovctl
