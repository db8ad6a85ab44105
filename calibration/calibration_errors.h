// SPDX-License-Identifier: MIT
#ifndef L5KOV_CALIBRATION_CALIBRATION_ERRORS_H_
#define L5KOV_CALIBRATION_CALIBRATION_ERRORS_H_

#include <string_view>

#include "lumora/kov/om_error.h"

namespace lumora::kov {

// The code of a Java exception: OM_ERR_COMMUNICATION when one of two exception classes (by whole
// name; subclasses do not count) speaks of a failed transmission, otherwise OM_ERR_JAVA.
OmError errorOfJavaException(std::string_view className, std::string_view message);

// Failures are told by the sign alone.
constexpr bool failed(OmError error) { return error < 0; }

}  // namespace lumora::kov

#endif  // L5KOV_CALIBRATION_CALIBRATION_ERRORS_H_
