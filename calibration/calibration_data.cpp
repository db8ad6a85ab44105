// SPDX-License-Identifier: MIT
#include "java/java_classes.h"
#include "java/kept.h"
#include "java/local_frame.h"
#include "lumora/kov/java/java_exception.h"
#include "lumora/kov/kov_calibrator.h"

namespace lumora::kov {

pocketjson::Value KovCalibrator::getCalibrationData() {
  // Kept: the empty text, not an empty object, is what a host takes for "no data".
  pocketjson::Value result = "";
  try {
    const java::LocalFrame frame;
    const auto values = java::wrap<java::JApiCalibrationResultValues>(
        frame.thread(), resultList->on(frame.thread())->get(calModeValue));
    if (!targetValues->on(frame.thread())->isUseMinimumLuminance()) {
      result["calibrationTarget"]["lmin"] = values.getMinLuminance();
    }
    const std::int32_t sensor = values.getBacklightSensorValue();
    if (sensor >= 0) result["photoSensorAD"] = sensor;  // negative: there is no reading
  } catch (const java::JavaException& e) {
    getErrorCode(e);
  }
  return result;
}

}  // namespace lumora::kov
