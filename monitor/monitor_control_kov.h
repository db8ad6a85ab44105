// SPDX-License-Identifier: MIT
#ifndef L5KOV_MONITOR_MONITOR_CONTROL_KOV_H_
#define L5KOV_MONITOR_MONITOR_CONTROL_KOV_H_

#include <memory>
#include <string>
#include <vector>

#include "java/api_monitor.h"
#include "java/kept.h"
#include "lumora/monitor.h"
#include "lumora/monitor_control.h"

namespace lumora::kov {

// One monitor of the Java library. Every operation asks the Java object anew, on the thread that
// calls, inside a local frame of its own.
class MonitorControlKov : public MonitorControl {
 public:
  using SharedMonitor = std::shared_ptr<const java::Kept<java::JApiMonitor>>;

  // A handle with a control of its own.
  static Monitor handleOf(java::JApiMonitor&& monitor);

  explicit MonitorControlKov(SharedMonitor monitor);
  ~MonitorControlKov() override;

  std::string getModelName() override;
  std::string getSerialNumber() override;
  std::string getPackageName() override;
  std::string getEdidModelName() override;
  std::string getEdidSerialNumber() override;
  long getEdidProductYear() override;
  std::string getConnectionType() override;
  pocketjson::Value getCalibrationTargetData(unsigned int lutNumber) override;
  OMC_USAGETIME getUsageTime() override;
  unsigned int getCalModeValue() override;
  void setCalModeValue(unsigned int position) override;
  std::vector<KovCalibrationHisInfo> getExtractCalibrationData() override;
  OmCtrlPanelType getMonitorColorType() override;
  bool isKeyLockSupported() override;
  OmCtrlKeyLockState getKeyLockState() override;
  void setKeyLockState(OmCtrlKeyLockState state) override;
  std::string getGammaModelTag(unsigned int index) override;
  void abortCalibration() override;
  void performCalibration(jobject targets, bool useExternalSensors, int graylevelCount,
                          bool measureBacklightResponse, std::string calibrationText,
                          long long handle) override;

 private:
  SharedMonitor monitor;
};

}  // namespace lumora::kov

#endif  // L5KOV_MONITOR_MONITOR_CONTROL_KOV_H_
