// SPDX-License-Identifier: MIT
#include "monitor/monitor_control_kov.h"

#include <cstdint>
#include <utility>

#include "java/java_classes.h"
#include "java/local_frame.h"
#include "monitor/history.h"
#include "monitor/name_table.h"
#include "monitor/stored_target.h"

namespace lumora::kov {
namespace {

using java::JApiMonitor;
using java::LocalFrame;

constexpr const char* kMonochrome = "Monochrome";
constexpr std::size_t kEdidSerialWidth = 8;

// Padded on the left with the digit 0; longer texts stay as they are.
std::string paddedSerial(const std::string& serial) {
  if (serial.size() >= kEdidSerialWidth) return serial;
  return std::string(kEdidSerialWidth - serial.size(), '0') + serial;
}

}  // namespace

// Two pieces of memory: the shared reference, and the control with the count of its handles.
Monitor MonitorControlKov::handleOf(JApiMonitor&& monitor) {
  auto shared = std::make_shared<const java::Kept<JApiMonitor>>(std::move(monitor));
  return Monitor(std::make_shared<MonitorControlKov>(std::move(shared)));
}

MonitorControlKov::MonitorControlKov(SharedMonitor monitor) : monitor(std::move(monitor)) {}
MonitorControlKov::~MonitorControlKov() = default;

std::string MonitorControlKov::getModelName() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getModel();
}

std::string MonitorControlKov::getSerialNumber() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getSerialNumber();
}

std::string MonitorControlKov::getPackageName() {
  const LocalFrame frame;
  return packageOfModel(monitor->on(frame.thread())->getModel());
}

std::string MonitorControlKov::getEdidModelName() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getEdidInformation().getModelName();
}

std::string MonitorControlKov::getEdidSerialNumber() {
  const LocalFrame frame;
  return paddedSerial(monitor->on(frame.thread())->getEdidInformation().getSerialNumber());
}

long MonitorControlKov::getEdidProductYear() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getEdidInformation().getYearOfManufacture();
}

std::string MonitorControlKov::getConnectionType() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getConnectionType();
}

pocketjson::Value MonitorControlKov::getCalibrationTargetData(unsigned int lutNumber) {
  const LocalFrame frame;
  const auto here = monitor->on(frame.thread());
  return storedTarget(frame.thread(), *here, lutNumber);
}

OMC_USAGETIME MonitorControlKov::getUsageTime() {
  const LocalFrame frame;
  return {monitor->on(frame.thread())->getWorkingHours(), 0};
}

// Kept: the library's own number of the active table, while setCalModeValue() takes a position.
unsigned int MonitorControlKov::getCalModeValue() {
  const LocalFrame frame;
  return static_cast<unsigned int>(monitor->on(frame.thread())->getActiveLut().getIndex());
}

void MonitorControlKov::setCalModeValue(unsigned int position) {
  const LocalFrame frame;
  const java::JList tables = monitor->on(frame.thread())->getLookUpTables();
  java::wrap<java::JApiLookUpTable>(frame.thread(), tables.get(static_cast<std::int32_t>(position)))
      .activate();
}

std::vector<KovCalibrationHisInfo> MonitorControlKov::getExtractCalibrationData() {
  const LocalFrame frame;
  const auto here = monitor->on(frame.thread());
  return readHistory(frame.thread(), *here);
}

OmCtrlPanelType MonitorControlKov::getMonitorColorType() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getColorType() == kMonochrome ? OmCtrlPanelMonochrome
                                                                    : OmCtrlPanelColor;
}

bool MonitorControlKov::isKeyLockSupported() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getOsd().isLockSupported();
}

OmCtrlKeyLockState MonitorControlKov::getKeyLockState() {
  const LocalFrame frame;
  return monitor->on(frame.thread())->getOsd().isLocked() ? OmCtrlKeyLockLocked
                                                          : OmCtrlKeyLockUnlocked;
}

// Kept: only 10 locks; 1 unlocks as 0 does.
void MonitorControlKov::setKeyLockState(OmCtrlKeyLockState state) {
  const LocalFrame frame;
  monitor->on(frame.thread())->getOsd().setLocked(state == OmCtrlKeyLockLocked);
}

std::string MonitorControlKov::getGammaModelTag(unsigned int index) {
  const LocalFrame frame;
  const java::JList history = monitor->on(frame.thread())->extractCalibrationData();
  return java::wrap<java::JApiExtractedCalibrationData>(
             frame.thread(), history.get(static_cast<std::int32_t>(index)))
      .getCalibrationTargetValues()
      .getGammaModelTag();
}

void MonitorControlKov::abortCalibration() {
  const LocalFrame frame;
  monitor->on(frame.thread())->abortCalibration();
}

void MonitorControlKov::performCalibration(jobject targets, bool useExternalSensors,
                                           int graylevelCount, bool measureBacklightResponse,
                                           std::string calibrationText, long long handle) {
  const LocalFrame frame;
  const std::string text = std::move(calibrationText);
  monitor->on(frame.thread())
      ->performCalibration(targets, useExternalSensors, graylevelCount, measureBacklightResponse,
                           text, static_cast<std::int64_t>(handle));
}

}  // namespace lumora::kov
