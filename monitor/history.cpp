// SPDX-License-Identifier: MIT
#include "monitor/history.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "calibration/measurement_device_code_map.h"
#include "java/java_classes.h"
#include "java/local_frame.h"
#include "monitor/display_function.h"

namespace lumora::kov {
namespace {

using java::JApiCalibrationTargetValues;
using java::JApiExtractedCalibrationData;

// Kept: plain truncation; hosts know the records' widths.
std::uint16_t truncated(std::int32_t value) { return static_cast<std::uint16_t>(value); }

// Toward zero. What does not fit, and what is no number, gives the 32-bit minimum, as the
// processor's own conversion does; the language leaves it undefined.
std::int32_t towardZero(double value) {
  constexpr double kLimit = 2147483648.0;
  return value > -kLimit - 1.0 && value < kLimit ? static_cast<std::int32_t>(value)
                                                 : std::numeric_limits<std::int32_t>::min();
}

void readTarget(const JApiExtractedCalibrationData& entry, KovCalibrationTargetInfo& info) {
  const JApiCalibrationTargetValues target = entry.getCalibrationTargetValues();
  info.deviceKind = entry.getMeasurementDeviceType().getName() == "None" ? 0 : 1;
  info.calibrationKind = "STANDARD";  // Kept: fixed, as reservedFlag and validFlag below are
  info.maxLuminance = target.getMaxLuminance();
  info.minLuminance = target.getMinLuminance();
  info.reservedFlag = false;
  if (target.isColorCalibration()) {
    info.colorMode = "CUSTOM";
    info.colorX = target.getColorX();
    info.colorY = target.getColorY();
  } else {
    info.colorMode = "OFF";
  }
  const DisplayFunction function = displayFunctionOf(target);
  info.displayFunction = static_cast<std::int32_t>(function);
  if (function == DisplayFunction::kGamma) info.gammaValue = target.getGammaValue();
  info.validFlag = true;
  info.ambientLight = target.getAmbientLightValue();
}

// The order of the reads is part of what the Java library sees.
KovCalibrationHisInfo readEntry(const JApiExtractedCalibrationData& entry) {
  KovCalibrationHisInfo info;
  info.lutNumber = truncated(entry.getLutNumber());
  ++info.lutNumber;  // Kept: one more than the library's number, in 16 bits
  info.verticalResolution = truncated(entry.getVerticalResolution().valueOr(0));
  info.horizontalResolution = truncated(entry.getHorizontalResolution().valueOr(0));
  info.run.workingHours = entry.getWorkingHours().valueOr(0);
  info.run.performer = entry.getPerformer();
  info.run.computerName = entry.getComputerName();
  info.colorDepth = truncated(entry.getColorDepth().valueOr(0));
  info.run.executeDate = entry.getExecuteDate();
  info.horizontalFrequency = towardZero(entry.getHorizontalFrequency().valueOr(0.0) * 1000.0);
  info.verticalFrequency = truncated(entry.getVerticalFrequency().valueOr(0));
  readTarget(entry, info.target);
  info.backlightSensorValue = truncated(entry.getBacklightSensorValue().valueOr(0));
  info.target.deviceId =
      MeasurementDeviceCodeMap().codeToDevice(entry.getMeasurementDeviceType().getId());
  info.target.deviceSerialNumber = entry.getMeasurementDeviceSerialNumber();
  return info;
}

}  // namespace

std::vector<KovCalibrationHisInfo> readHistory(java::JavaEnv* thread,
                                               const java::JApiMonitor& monitor) {
  std::vector<KovCalibrationHisInfo> result;
  const java::JList history = monitor.extractCalibrationData();
  if (history.isNull()) return result;
  const std::int32_t size = history.size();
  if (size > 0) result.reserve(static_cast<std::size_t>(size));  // moving records is not cheap
  for (std::int32_t i = 0; i < size; ++i) {
    const java::LocalFrame entry;  // a history of any length leaves no more than one entry does
    result.push_back(readEntry(java::wrap<JApiExtractedCalibrationData>(thread, history.get(i))));
  }
  return result;
}

}  // namespace lumora::kov
