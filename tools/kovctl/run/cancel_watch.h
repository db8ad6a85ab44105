// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_CANCEL_WATCH_H_
#define L5KOV_TOOLS_KOVCTL_RUN_CANCEL_WATCH_H_

#include <l5kov.h>

#include <atomic>
#include <functional>
#include <thread>

#include "output/progress.h"

namespace kovctl {

/// Waits, counting down, as long as a monitor takes after a cancellation.
void settle(Progress& progress);

/// While a calibration blocks its thread, this one waits for Ctrl-C, a request to terminate or a
/// failing delegate, cancels the calibration and counts down while the monitor settles. It lives as
/// long as execute() runs.
class CancelWatch {
 public:
  CancelWatch(lumora::kov::KovCalibrator& watched, Progress& progressDisplay,
              std::function<bool()> cancelWanted);
  CancelWatch(const CancelWatch&) = delete;
  CancelWatch& operator=(const CancelWatch&) = delete;
  /// Waits for the thread.
  ~CancelWatch();

  /// For the calibrating thread: waits until the cancellation is in effect, for a few seconds.
  bool awaitCanceled() const;

 private:
  void watch();
  bool cancel();

  lumora::kov::KovCalibrator& calibrator;
  Progress& progress;
  std::function<bool()> isWanted;
  std::atomic<bool> over{false};
  std::thread thread;
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_CANCEL_WATCH_H_
