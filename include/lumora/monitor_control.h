// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_MONITOR_CONTROL_H_
#define L5KOV_LUMORA_MONITOR_CONTROL_H_

#include <string>
#include <vector>

#include "l5kov/export.h"
#include "lumora/kov/java/jni_names.h"
#include "lumora/kov/kov_calibration_his_info.h"
#include "lumora/om_types.h"
#include "pocketjson/value.h"

namespace lumora {

/// What a Monitor handle forwards to. The library's own implementation asks the Java library on
/// every call; a host may supply another.
///
/// The order of the virtual operations is binary interface: it must stay, and no operation may be
/// overloaded.
class L5KOV_API MonitorControl {
 public:
  MonitorControl();
  MonitorControl(const MonitorControl&);
  MonitorControl& operator=(const MonitorControl&);
  virtual ~MonitorControl() = 0;  // has a body: derived destructors call it

  virtual std::string getModelName() = 0;
  virtual std::string getSerialNumber() = 0;
  virtual std::string getPackageName() = 0;
  virtual std::string getEdidModelName() = 0;
  virtual std::string getEdidSerialNumber() = 0;
  virtual long getEdidProductYear() = 0;  // a 32-bit number on every system
  virtual std::string getConnectionType() = 0;
  virtual pocketjson::Value getCalibrationTargetData(unsigned int lutNumber) = 0;
  virtual OMC_USAGETIME getUsageTime() = 0;
  virtual unsigned int getCalModeValue() = 0;
  virtual void setCalModeValue(unsigned int position) = 0;
  virtual std::vector<kov::KovCalibrationHisInfo> getExtractCalibrationData() = 0;
  virtual OmCtrlPanelType getMonitorColorType() = 0;
  virtual bool isKeyLockSupported() = 0;
  virtual OmCtrlKeyLockState getKeyLockState() = 0;
  virtual void setKeyLockState(OmCtrlKeyLockState state) = 0;
  virtual std::string getGammaModelTag(unsigned int index) = 0;
  virtual void abortCalibration() = 0;
  virtual void performCalibration(jobject targets, bool useExternalSensors, int graylevelCount,
                                  bool measureBacklightResponse, std::string calibrationText,
                                  long long handle) = 0;
};

}  // namespace lumora

#endif  // L5KOV_LUMORA_MONITOR_CONTROL_H_
