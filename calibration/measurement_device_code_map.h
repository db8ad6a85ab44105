// SPDX-License-Identifier: MIT
#ifndef L5KOV_CALIBRATION_MEASUREMENT_DEVICE_CODE_MAP_H_
#define L5KOV_CALIBRATION_MEASUREMENT_DEVICE_CODE_MAP_H_

#include <cstdint>

namespace lumora::kov {

// Translates between the Java library's measurement-device codes and the device identifiers of the
// measurement-device library. Holds nothing: a row is searched among a few constant ones, which
// costs a history of many entries less than any map made for each of them.
class MeasurementDeviceCodeMap {
 public:
  // A code without a row is returned unchanged.
  std::int32_t codeToDevice(std::int32_t code) const;
  // An identifier without a row gives -2.
  std::int32_t deviceToCode(std::int32_t device) const;
};

}  // namespace lumora::kov

#endif  // L5KOV_CALIBRATION_MEASUREMENT_DEVICE_CODE_MAP_H_
