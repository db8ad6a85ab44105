// SPDX-License-Identifier: MIT
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "calibration/calibration_errors.h"
#include "calibration/colour_temperature.h"
#include "java/java_classes.h"
#include "java/kept.h"
#include "java/local_frame.h"
#include "lumora/kov/java/java_exception.h"
#include "lumora/kov/kov_calibrator.h"
#include "lumora/kov/kov_monitor_manager.h"

namespace lumora::kov {
namespace {

using java::JApiCalibrationTargetValues;
using java::JavaException;
using java::LocalFrame;
using pocketjson::Value;

struct DisplayFunctionRow {
  std::string_view name;  // of the host's target
  const char* gammaModelType;
  enum class Further { kNothing, kGivenExponent, kExponentOne, kCurve } further;
};
using Further = DisplayFunctionRow::Further;

constexpr DisplayFunctionRow kDisplayFunctions[] = {
    {"DICOM", "Dicom 14", Further::kNothing},
    {"CIE", "CIE 1976", Further::kNothing},
    {"EXP", "Gamma Function", Further::kGivenExponent},
    {"LOG_LINEAR", "Logarithmic Luminance Linear", Further::kNothing},
    {"LINEAR", "Gamma Function", Further::kExponentOne},  // Kept: a gamma function of 1.0
    {"NATIVE", "Original", Further::kNothing},
    {"USER_DEFINE", "Userdefined", Further::kCurve},
};

void setColourPoint(const JApiCalibrationTargetValues& values, const std::string& type,
                    Chromaticity custom) {
  if (type == "OFF") {
    values.setColorCalibration(false);
    values.setColorX(0.0);
    values.setColorY(0.0);
    return;
  }
  values.setColorCalibration(true);
  Chromaticity point;  // 0, 0 for a type that nobody knows
  if (type == "CUSTOM") {
    point = custom;
  } else if (type.starts_with('K')) {
    point = chromaticityOf(leadingLong(type.substr(1)));
  }
  values.setColorX(point.x);
  values.setColorY(point.y);
}

void setCurve(JNIEnv* env, const JApiCalibrationTargetValues& values, const Value& curve) {
  std::vector<double> numbers;
  numbers.reserve(curve.size());
  for (std::size_t i = 0; i < curve.size(); ++i) numbers.push_back(curve[i].asDouble());
  const jdoubleArray array =
      java::jni::newDoubleArray(env, numbers.data(), static_cast<jsize>(numbers.size()));
  if (array == nullptr) java::jni::throwOutOfMemory(env);
  values.setUserDefinedData(array);
}

}  // namespace

OmError KovCalibrator::setCalibrationTarget(const Value& target, const Value& curve, const Value&,
                                            double ambientLight, bool) {
  // Kept: the third value and the last flag are accepted and not read.
  // Kept: no handler here, so a temperature that cannot be read leaves as a standard exception.
  if (const OmError error = setTargetLuminance(target, ambientLight); failed(error)) return error;
  if (const OmError error = setDisplayFunction(target, curve); failed(error)) return error;
  return setGammaModelTag();
}

OmError KovCalibrator::setTargetLuminance(const Value& target, double ambientLight) {
  const double maxLuminance = target["LmaxValue"].asDouble();
  const double minLuminance = target["LminValue"].asDouble();
  const bool useMeasuredMinimum = target["IsUsedMeasurementLmin"].asBool();
  const bool useAmbientLight = target["IsUsedLamb"].asBool();
  const std::string colourType = target["ColorTemperatureType"].asString();
  const double customX = target["ColorXValue"].asDouble();
  const double customY = target["ColorYValue"].asDouble();
  // Kept: "DisplayFunctionType" belongs to the keys read here and is not used before the next step.
  (void)target["DisplayFunctionType"].asString();
  useExternalSensors = target["IsUsedExternalSensors"].asBool();
  // Kept: a target without the key asks for 0 levels; the 52 of a new calibrator is gone then.
  graylevelCount = target["numberOfGraylevels"].asInt();
  measureBacklightResponse = target["measureBacklightResponse"].asBool();
  try {
    const LocalFrame frame;
    const auto values = targetValues->on(frame.thread());
    setColourPoint(*values, colourType, {customX, customY});
    if (useAmbientLight) values->setAmbientLightValue(ambientLight);
    values->setMaxLuminance(maxLuminance);
    values->setMinLuminance(minLuminance);
    values->setUseMinimumLuminance(!useMeasuredMinimum);  // Kept: inverted
    return OM_OK;
  } catch (const JavaException& e) {
    return getErrorCode(e);
  }
}

OmError KovCalibrator::setDisplayFunction(const Value& target, const Value& curve) try {
  const std::string name = target["DisplayFunctionType"].asString();
  const double exponent = target["ExpValue"].asDouble();
  const LocalFrame frame;
  const auto values = targetValues->on(frame.thread());
  for (const DisplayFunctionRow& row : kDisplayFunctions) {
    if (name != row.name) continue;
    values->setGammaModelType(row.gammaModelType);
    if (row.further == Further::kGivenExponent) values->setGammaValue(exponent);
    if (row.further == Further::kExponentOne) values->setGammaValue(1.0);
    if (row.further == Further::kCurve && curve.type() == Value::Array) {
      setCurve(frame.thread()->env(), *values, curve);
    }
    break;
  }
  return OM_OK;
} catch (const JavaException& e) {
  return getErrorCode(e);
}

OmError KovCalibrator::setGammaModelTag() try {
  const Monitor monitor = KovMonitorManager::get().getMonitorByName(monitorName, monitorKey);
  const std::string tag = monitor.getGammaModelTag(static_cast<unsigned int>(calModeValue));
  const LocalFrame frame;
  targetValues->on(frame.thread())->setGammaModelTag(tag);
  return OM_OK;
} catch (const JavaException& e) {
  return getErrorCode(e);
} catch (const std::exception&) {
  return OM_ERR_COMMUNICATION;
}

}  // namespace lumora::kov
