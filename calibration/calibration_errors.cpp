// SPDX-License-Identifier: MIT
#include "calibration/calibration_errors.h"

#include "lumora/kov/java/java_exception.h"
#include "lumora/kov/kov_calibrator.h"

namespace lumora::kov {
namespace {

constexpr std::string_view kIoException = "java.io.IOException";
constexpr std::string_view kResourceException = "com.orva.dt.commons.resourceman.ResourceException";
constexpr std::string_view kSendingFailed = "Error sending data";

}  // namespace

OmError errorOfJavaException(std::string_view className, std::string_view message) {
  const bool mayBeTransmission = className == kIoException || className == kResourceException;
  return mayBeTransmission && message.find(kSendingFailed) != std::string_view::npos
             ? OM_ERR_COMMUNICATION
             : OM_ERR_JAVA;
}

OmError KovCalibrator::getErrorCode(const java::JavaException& e) {
  lastErrorMessage = e.what();
  return errorOfJavaException(e.getClassName(), lastErrorMessage);
}

// Kept: only a Java failure writes the message and nothing clears it.
std::string KovCalibrator::getErrorMsg() const { return lastErrorMessage; }

}  // namespace lumora::kov
