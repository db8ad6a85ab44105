// SPDX-License-Identifier: MIT
#include "lumora/monitor.h"

#include <utility>

namespace lumora {

// When the share count cannot be made, shared_ptr deletes the control before it throws.
Monitor::Monitor(MonitorControl* control) : control(control) {}
Monitor::Monitor(const Monitor&) = default;
Monitor::Monitor(Monitor&&) noexcept = default;
Monitor& Monitor::operator=(const Monitor&) = default;
Monitor& Monitor::operator=(Monitor&&) noexcept = default;
Monitor::~Monitor() = default;

std::string Monitor::getModelName() const { return control->getModelName(); }
std::string Monitor::getSerialNumber() const { return control->getSerialNumber(); }
std::string Monitor::getPackageName() const { return control->getPackageName(); }
std::string Monitor::getEdidModelName() const { return control->getEdidModelName(); }
std::string Monitor::getEdidSerialNumber() const { return control->getEdidSerialNumber(); }
long Monitor::getEdidProductYear() const { return control->getEdidProductYear(); }
std::string Monitor::getConnectionType() const { return control->getConnectionType(); }

pocketjson::Value Monitor::getCalibrationTargetData(unsigned int lutNumber) const {
  return control->getCalibrationTargetData(lutNumber);
}

OMC_USAGETIME Monitor::getUsageTime() const { return control->getUsageTime(); }
unsigned int Monitor::getCalModeValue() const { return control->getCalModeValue(); }
void Monitor::setCalModeValue(unsigned int position) const { control->setCalModeValue(position); }

std::vector<kov::KovCalibrationHisInfo> Monitor::getExtractCalibrationData() const {
  return control->getExtractCalibrationData();
}

OmCtrlPanelType Monitor::getMonitorColorType() const { return control->getMonitorColorType(); }
bool Monitor::isKeyLockSupported() const { return control->isKeyLockSupported(); }
OmCtrlKeyLockState Monitor::getKeyLockState() const { return control->getKeyLockState(); }
void Monitor::setKeyLockState(OmCtrlKeyLockState state) const { control->setKeyLockState(state); }

std::string Monitor::getGammaModelTag(unsigned int index) const {
  return control->getGammaModelTag(index);
}

void Monitor::abortCalibration() const { control->abortCalibration(); }

void Monitor::performCalibration(jobject targets, bool useExternalSensors, int graylevelCount,
                                 bool measureBacklightResponse, std::string calibrationText,
                                 long long handle) const {
  control->performCalibration(targets, useExternalSensors, graylevelCount, measureBacklightResponse,
                              std::move(calibrationText), handle);
}

}  // namespace lumora
