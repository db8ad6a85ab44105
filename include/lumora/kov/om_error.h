// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_OM_ERROR_H_
#define L5KOV_LUMORA_KOV_OM_ERROR_H_

#include <cstdint>

/// Result of a calibrator operation: 32 bits, failures have the top bit set, so a failure is any
/// negative value. Test the sign, not a list.
enum OmError : std::int32_t {
  OM_OK = 0,
  /// The Java library failed; KovCalibrator::getErrorMsg() has its message. Also: the native
  /// callbacks could not be registered (then there is no message).
  OM_ERR_JAVA = static_cast<std::int32_t>(0x80000000U),
  /// The calibration was canceled.
  OM_ERR_CANCELED = static_cast<std::int32_t>(0x8000000CU),
  /// Sending data to the monitor failed; also any standard exception inside an operation, for
  /// instance that no monitor has the calibrator's two names.
  OM_ERR_COMMUNICATION = static_cast<std::int32_t>(0x80010001U),
};

static_assert(sizeof(OmError) == 4, "32 bits");
static_assert(OM_ERR_JAVA < 0 && OM_ERR_CANCELED < 0 && OM_ERR_COMMUNICATION < 0,
              "failures are negative");

#endif  // L5KOV_LUMORA_KOV_OM_ERROR_H_
