// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_MONITOR_H_
#define L5KOV_LUMORA_MONITOR_H_

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "l5kov/export.h"
#include "lumora/kov/java/jni_names.h"
#include "lumora/kov/kov_calibration_his_info.h"
#include "lumora/monitor_control.h"
#include "lumora/om_types.h"
#include "pocketjson/value.h"

namespace lumora {

namespace kov {
class MonitorControlKov;
}

/// A monitor of the workstation, as kov::KovMonitorManager hands it out: a small value, freely
/// copied; copies address the same monitor.
///
/// Every operation asks the monitor anew; nothing is cached. Operations may be called on any thread
/// (handles may be copied and destroyed on different threads), one at a time per monitor: there is
/// no lock. Only abortCalibration() is for another thread while performCalibration() runs. Texts
/// are UTF-8.
///
/// Unless said otherwise every operation throws kov::java::JavaException when the Java library
/// does, what kov::java::Env() throws, and std::logic_error after DeleteJavaVM() on the thread. A
/// moved-from handle may only be assigned or destroyed.
class L5KOV_API Monitor {
 public:
  /// Takes ownership of `control`; deletes it also when this constructor throws (std::bad_alloc).
  explicit Monitor(MonitorControl* control);
  Monitor(const Monitor&);
  Monitor(Monitor&&) noexcept;
  Monitor& operator=(const Monitor&);
  Monitor& operator=(Monitor&&) noexcept;
  ~Monitor();

  std::string getModelName() const;
  std::string getSerialNumber() const;

  /// The package of the monitor's model, from the name table file "KovMonitorName.xml" (read on
  /// each call, so edits show at once): "noPackage" when the model is not in it or the file is
  /// missing, unreadable or malformed.
  std::string getPackageName() const;

  std::string getEdidModelName() const;
  /// At least 8 characters, padded with the digit 0 on the left.
  std::string getEdidSerialNumber() const;
  /// Year of manufacture.
  long getEdidProductYear() const;
  std::string getConnectionType() const;

  /// The target that look-up table `lutNumber` (the Java library's own number, which is one less
  /// than KovCalibrationHisInfo::lutNumber) was calibrated for: an object with "lmax", "lmin"
  /// (cd/m²), "isColorValue", "colorX", "colorY", "lamb" (as stored), "useLminFlag", "exp" and the
  /// integer "displayFunction" (codes as in kov::KovCalibrationTargetInfo). The null value when the
  /// monitor's history has no entry for the table.
  pocketjson::Value getCalibrationTargetData(unsigned int lutNumber) const;

  OMC_USAGETIME getUsageTime() const;

  /// The Java library's own number of the active look-up table.
  unsigned int getCalModeValue() const;
  /// Activates the table at this position of the library's list, counted from 0. Position and
  /// number agree where the library lists its tables in the order of their numbers.
  // Kept: one operation speaks of the number, the other of the position.
  void setCalModeValue(unsigned int position) const;

  /// The calibration history in the Java library's order; empty when there is none.
  std::vector<kov::KovCalibrationHisInfo> getExtractCalibrationData() const;

  OmCtrlPanelType getMonitorColorType() const;
  bool isKeyLockSupported() const;
  OmCtrlKeyLockState getKeyLockState() const;
  /// OmCtrlKeyLockLocked (10) locks the keys; every other value unlocks them.
  void setKeyLockState(OmCtrlKeyLockState state) const;

  /// The gamma model tag of the history entry at position `index`. There is no check of the range:
  /// a position beyond the history ends in the Java library's own exception.
  std::string getGammaModelTag(unsigned int index) const;

  /// Asks the monitor to abort a running calibration; returns at once.
  void abortCalibration() const;

  /// Runs a calibration and returns when it is over. For kov::KovCalibrator, which makes the
  /// arguments; `targets` is a java.util.List, `handle` the address of the calibrator.
  void performCalibration(jobject targets, bool useExternalSensors, int graylevelCount,
                          bool measureBacklightResponse, std::string calibrationText,
                          long long handle) const;

 private:
  friend class kov::MonitorControlKov;

  // Shares a control of the library's own that has been made in one piece with its count. A
  // template, and so, unlike the other members, no part of what the library exports.
  template <class Control>
  explicit Monitor(std::shared_ptr<Control> made) noexcept : control(std::move(made)) {}

  std::shared_ptr<MonitorControl> control;
};

}  // namespace lumora

#endif  // L5KOV_LUMORA_MONITOR_H_
