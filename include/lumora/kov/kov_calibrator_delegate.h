// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_KOV_CALIBRATOR_DELEGATE_H_
#define L5KOV_LUMORA_KOV_KOV_CALIBRATOR_DELEGATE_H_

#include <string>

#include "l5kov/export.h"
#include "lumora/kov/patch_record.h"

namespace lumora {
namespace kov {

/// What a host supplies to a calibration: it draws, measures and listens.
///
/// All operations are called inside KovCalibrator::execute(), on the thread that called it, with
/// Java frames on the stack below. An exception that leaves one does not pass through those frames:
/// it becomes a Java exception there (a JavaException the one that it stands for, any other a
/// java.lang.RuntimeException with its what() as the message). Unless the Java library handles it,
/// it ends the calibration and comes out of execute() as an OmError with that message.
///
/// The order of the virtual operations is binary interface.
class L5KOV_API KovCalibratorDelegate {
 public:
  KovCalibratorDelegate();
  KovCalibratorDelegate(const KovCalibratorDelegate&);
  KovCalibratorDelegate& operator=(const KovCalibratorDelegate&);
  virtual ~KovCalibratorDelegate();

  /// Shows the colour patch[4], patch[5], patch[6] (each 0 to 1) on the monitor under calibration
  /// and returns when it is visible. What the operation writes into `patch` is kept and handed to
  /// the next measure().
  virtual void showColorPatch(PatchRecord& patch) = 0;

  /// Measures the patch on the screen. `device` is the handle that the calibrator was made with,
  /// `patch` a copy of the current patch, `result` a zero-filled record: write luminance (cd/m²)
  /// at 8 and chromaticity x, y at 10 and 11. The records are valid during the call only.
  virtual void measure(void* device, PatchRecord* patch, PatchRecord* result) = 0;

  /// `fraction` runs from 0.0 to 1.0.
  virtual void progress(double fraction) = 0;

  /// `event` is "FinishCalibration" once the results have been taken over.
  virtual void notifyEvent(std::string event) = 0;
};

}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_KOV_CALIBRATOR_DELEGATE_H_
