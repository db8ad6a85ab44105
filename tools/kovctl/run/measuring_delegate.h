// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_MEASURING_DELEGATE_H_
#define L5KOV_TOOLS_KOVCTL_RUN_MEASURING_DELEGATE_H_

#include <l5kov.h>

#include <atomic>
#include <functional>
#include <optional>

#include "failure.h"
#include "output/progress.h"
#include "record/run_record.h"
#include "run/measurements.h"
#include "run/measuring_station.h"

namespace kovctl {

/// What a calibration draws and measures with. A failure of the instrument or of the screen does
/// not go through the Java library: it asks for the calibration to be canceled, as a user would, so
/// that the library puts the monitor back the way it always does.
class MeasuringDelegate : public lumora::kov::KovCalibratorDelegate {
 public:
  /// Waits, inside a callback, until the cancellation is in effect; false when it did not come.
  using AwaitCancel = std::function<bool()>;

  MeasuringDelegate(MeasuringStation& measuringStation, Progress& progressDisplay,
                    const RunClock& runClock, std::vector<PatchResult>& results);

  void setAwaitCancel(AwaitCancel wait) { awaitCancel = std::move(wait); }
  /// Read by the cancelling thread.
  bool wantsCancel() const { return failing.load(); }
  bool hasFinished() const { return finished; }
  const std::optional<Failure>& failure() const { return failed; }

  void showColorPatch(lumora::kov::PatchRecord& patch) override;
  void measure(void* device, lumora::kov::PatchRecord* patch,
               lumora::kov::PatchRecord* result) override;
  void progress(double fraction) override { progressShown.advance(fraction); }
  void notifyEvent(std::string event) override;

 private:
  void giveUp(const Failure& reason);
  bool mustStop();

  MeasuringStation& station;
  Progress& progressShown;
  const RunClock& clock;
  std::vector<PatchResult>& patches;
  AwaitCancel awaitCancel;
  std::atomic<bool> failing{false};
  std::optional<Failure> failed;
  bool finished = false;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_MEASURING_DELEGATE_H_
