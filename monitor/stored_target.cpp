// SPDX-License-Identifier: MIT
#include "monitor/stored_target.h"

#include <cstdint>

#include "java/java_classes.h"
#include "java/local_frame.h"
#include "monitor/display_function.h"

namespace lumora::kov {
namespace {

using java::JApiCalibrationTargetValues;
using java::JApiExtractedCalibrationData;

// Values go over as the Java library has them; the chromaticity also of a target without colour.
pocketjson::Value describe(const JApiCalibrationTargetValues& target) {
  pocketjson::Value result;
  result["lmax"] = target.getMaxLuminance();
  result["lmin"] = target.getMinLuminance();
  result["isColorValue"] = target.isColorCalibration();
  result["colorX"] = target.getColorX();
  result["colorY"] = target.getColorY();
  result["lamb"] = target.getAmbientLightValue();
  result["useLminFlag"] = target.isUseMinimumLuminance();
  result["exp"] = target.getGammaValue();
  result["displayFunction"] = static_cast<int>(displayFunctionOf(target));
  return result;
}

}  // namespace

pocketjson::Value storedTarget(java::JavaEnv* thread, const java::JApiMonitor& monitor,
                               unsigned int lutNumber) {
  const java::JList history = monitor.extractCalibrationData();
  if (history.isNull()) return {};
  const std::int32_t size = history.size();
  for (std::int32_t i = 0; i < size; ++i) {
    const java::LocalFrame references;  // no more at the end of a long history than of a short one
    const auto entry = java::wrap<JApiExtractedCalibrationData>(thread, history.get(i));
    // Kept: compared as it stands, although history records report one more.
    if (static_cast<std::uint32_t>(entry.getLutNumber()) == lutNumber) {
      return describe(entry.getCalibrationTargetValues());
    }
  }
  return {};
}

}  // namespace lumora::kov
