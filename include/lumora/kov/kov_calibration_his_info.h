// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_KOV_CALIBRATION_HIS_INFO_H_
#define L5KOV_LUMORA_KOV_KOV_CALIBRATION_HIS_INFO_H_

#include <cstdint>
#include <string>

namespace lumora {
namespace kov {

/// The target that a calibration of the history aimed at, and the instrument it was measured with.
struct KovCalibrationTargetInfo {
  std::uint8_t deviceKind = 0;  ///< 0: the instrument's type is named "None"; otherwise 1
  std::string calibrationKind;  ///< always "STANDARD"
  double maxLuminance = 0.0;    ///< cd/m²
  double minLuminance = 0.0;    ///< cd/m²
  bool reservedFlag = false;    ///< always false
  std::string colorMode;        ///< "CUSTOM" for a colour calibration, otherwise "OFF"
  double colorX = 0.0;          ///< CIE 1931 x; 0 when the mode is "OFF"
  double colorY = 0.0;          ///< CIE 1931 y; 0 when the mode is "OFF"
  /// 0 DICOM (and unknown names), 1 CIE 1976, 2 gamma, 3 logarithmic-linear, 4 gamma 1.0, 5 native,
  /// 6 user-defined
  std::int32_t displayFunction = 0;
  double gammaValue = 0.0;         ///< exponent, only when displayFunction is 2; otherwise 0
  bool validFlag = false;          ///< always true in a record that the library made
  double ambientLight = 0.0;       ///< as the Java library stores it
  std::int32_t deviceId = 0;       ///< device identifier of the instrument; a Java device code
                                   ///< that the library cannot translate stays as it is
  std::string deviceSerialNumber;  ///< serial number of the instrument
};

/// Who ran a calibration of the history, where and when.
struct KovCalibrationRunInfo {
  std::string executeDate;        ///< as the Java library formats it
  std::string performer;          ///< as stored with the entry
  std::int32_t workingHours = 0;  ///< the monitor's working hours at the time
  std::string computerName;       ///< as stored with the entry
};

/// One entry of a monitor's calibration history. Texts are UTF-8; a value that the monitor does not
/// have is 0 or empty.
// Kept: the 16-bit fields take the library's 32-bit numbers by plain truncation.
struct KovCalibrationHisInfo {
  std::uint16_t lutNumber = 0;  ///< look-up table number, one more than the Java library's
  KovCalibrationTargetInfo target;
  std::uint16_t backlightSensorValue = 0;
  KovCalibrationRunInfo run;
  std::uint16_t horizontalResolution = 0;  ///< pixels
  std::uint16_t verticalResolution = 0;    ///< pixels
  std::int32_t horizontalFrequency = 0;    ///< the library's number times 1000, truncated
  std::uint16_t verticalFrequency = 0;     ///< as the library reports it
  std::uint16_t colorDepth = 0;            ///< bits
};

}  // namespace kov
}  // namespace lumora

#endif  // L5KOV_LUMORA_KOV_KOV_CALIBRATION_HIS_INFO_H_
