// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_ABI_RECORD_LAYOUTS_H_
#define L5KOV_TESTS_ABI_RECORD_LAYOUTS_H_

// Sizes and offsets of what crosses the border to a host, by value. Compiled by the build's own
// compiler (Linux, mingw) and by clang for the MSVC ABI: only what kExceptionSize says differs.
#include <l5kov.h>

#include <cstddef>

namespace l5kovlayouts {

// A text of 32 bytes and an array of 24, as the three standard libraries have them in release
// builds; a checking or instrumented one lays out its own.
static_assert(sizeof(std::string) == 32 && alignof(std::string) == 8);
static_assert(sizeof(std::vector<int>) == 24);

using lumora::kov::KovCalibrationHisInfo;
using lumora::kov::KovCalibrationRunInfo;
using lumora::kov::KovCalibrationTargetInfo;

static_assert(offsetof(OMC_USAGETIME, workingHours) == 0);
static_assert(offsetof(OMC_USAGETIME, reserved) == 4);
static_assert(sizeof(OMC_USAGETIME) == 8 && alignof(OMC_USAGETIME) == 4);
static_assert(sizeof(OmError) == 4 && sizeof(OmCtrlPanelType) == 4);
static_assert(sizeof(OmCtrlKeyLockState) == 4);

static_assert(offsetof(KovCalibrationRunInfo, executeDate) == 0);
static_assert(offsetof(KovCalibrationRunInfo, performer) == 32);
static_assert(offsetof(KovCalibrationRunInfo, workingHours) == 64);
static_assert(offsetof(KovCalibrationRunInfo, computerName) == 72);
static_assert(sizeof(KovCalibrationRunInfo) == 104);

static_assert(offsetof(KovCalibrationTargetInfo, deviceKind) == 0);
static_assert(offsetof(KovCalibrationTargetInfo, calibrationKind) == 8);
static_assert(offsetof(KovCalibrationTargetInfo, maxLuminance) == 40);
static_assert(offsetof(KovCalibrationTargetInfo, minLuminance) == 48);
static_assert(offsetof(KovCalibrationTargetInfo, reservedFlag) == 56);
static_assert(offsetof(KovCalibrationTargetInfo, colorMode) == 64);
static_assert(offsetof(KovCalibrationTargetInfo, colorX) == 96);
static_assert(offsetof(KovCalibrationTargetInfo, colorY) == 104);
static_assert(offsetof(KovCalibrationTargetInfo, displayFunction) == 112);
static_assert(offsetof(KovCalibrationTargetInfo, gammaValue) == 120);
static_assert(offsetof(KovCalibrationTargetInfo, validFlag) == 128);
static_assert(offsetof(KovCalibrationTargetInfo, ambientLight) == 136);
static_assert(offsetof(KovCalibrationTargetInfo, deviceId) == 144);
static_assert(offsetof(KovCalibrationTargetInfo, deviceSerialNumber) == 152);
static_assert(sizeof(KovCalibrationTargetInfo) == 184);

static_assert(offsetof(KovCalibrationHisInfo, lutNumber) == 0);
static_assert(offsetof(KovCalibrationHisInfo, target) == 8);
static_assert(offsetof(KovCalibrationHisInfo, backlightSensorValue) == 192);
static_assert(offsetof(KovCalibrationHisInfo, run) == 200);
static_assert(offsetof(KovCalibrationHisInfo, horizontalResolution) == 304);
static_assert(offsetof(KovCalibrationHisInfo, verticalResolution) == 306);
static_assert(offsetof(KovCalibrationHisInfo, horizontalFrequency) == 308);
static_assert(offsetof(KovCalibrationHisInfo, verticalFrequency) == 312);
static_assert(offsetof(KovCalibrationHisInfo, colorDepth) == 314);
static_assert(sizeof(KovCalibrationHisInfo) == 320 && alignof(KovCalibrationHisInfo) == 8);

static_assert(sizeof(lumora::kov::PatchRecord) == 144 && alignof(lumora::kov::PatchRecord) == 8);

// Objects that hosts make, hold or derive from.
static_assert(sizeof(pocketjson::Value) == 16 && alignof(pocketjson::Value) == 8);
static_assert(sizeof(pocketjson::Value::AbstractContainer) == 16);
static_assert(sizeof(lumora::Monitor) == 16 && sizeof(lumora::MonitorControl) == 8);
static_assert(sizeof(lumora::kov::KovMonitorManager) == 24);
static_assert(sizeof(lumora::kov::KovCalibratorDelegate) == 8);
static_assert(sizeof(lumora::kov::KovCalibrator) == 400);
static_assert(sizeof(lumora::kov::java::JavaEnv) == 32);

// What the standard library's own exception takes before the library's fields.
inline constexpr std::size_t kExceptionSize = sizeof(std::runtime_error);
static_assert(kExceptionSize == 16 || kExceptionSize == 24, "GCC's or MSVC's");
static_assert(sizeof(lumora::kov::java::JavaException) == kExceptionSize + 48);

}  // namespace l5kovlayouts

#endif  // L5KOV_TESTS_ABI_RECORD_LAYOUTS_H_
