// SPDX-License-Identifier: MIT
#include "calibration/calibration_errors.h"

#include <mutex>

#include "lumora/kov/java/java_exception.h"
#include "lumora/kov/kov_calibrator.h"

namespace lumora::kov {
namespace {

constexpr std::string_view kIoException = "java.io.IOException";
constexpr std::string_view kResourceException = "com.orva.dt.commons.resourceman.ResourceException";
constexpr std::string_view kSendingFailed = "Error sending data";

// A run and the cancel() of it may fail at the same moment, on two threads. One lock for all
// calibrators, since their layout has no room for one each and a message is rare.
std::mutex messageMutex;

}  // namespace

OmError errorOfJavaException(std::string_view className, std::string_view message) {
  const bool mayBeTransmission = className == kIoException || className == kResourceException;
  return mayBeTransmission && message.find(kSendingFailed) != std::string_view::npos
             ? OM_ERR_COMMUNICATION
             : OM_ERR_JAVA;
}

OmError KovCalibrator::getErrorCode(const java::JavaException& e) {
  const OmError error = errorOfJavaException(e.getClassName(), e.what());
  const std::lock_guard lock(messageMutex);
  lastErrorMessage = e.what();
  return error;
}

// Kept: only a Java failure writes the message and nothing clears it.
std::string KovCalibrator::getErrorMsg() const {
  const std::lock_guard lock(messageMutex);
  return lastErrorMessage;
}

}  // namespace lumora::kov
