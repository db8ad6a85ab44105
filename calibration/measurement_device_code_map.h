// SPDX-License-Identifier: MIT
#ifndef L5KOV_CALIBRATION_MEASUREMENT_DEVICE_CODE_MAP_H_
#define L5KOV_CALIBRATION_MEASUREMENT_DEVICE_CODE_MAP_H_

#include <cstdint>
#include <unordered_map>

namespace lumora::kov {

// Translates between the Java library's measurement-device codes and the device identifiers of the
// measurement-device library. Built afresh for each use.
class MeasurementDeviceCodeMap {
 public:
  MeasurementDeviceCodeMap();

  // A code without a row is returned unchanged.
  std::int32_t codeToDevice(std::int32_t code) const;
  // An identifier without a row gives -2.
  std::int32_t deviceToCode(std::int32_t device) const;

 private:
  std::unordered_map<std::int32_t, std::int32_t> devices;  // by code
  std::unordered_map<std::int32_t, std::int32_t> codes;    // by device
};

}  // namespace lumora::kov

#endif  // L5KOV_CALIBRATION_MEASUREMENT_DEVICE_CODE_MAP_H_
