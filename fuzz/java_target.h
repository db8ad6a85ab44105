// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_JAVA_TARGET_H_
#define L5KOV_FUZZ_JAVA_TARGET_H_

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "fuzz/plain_conversions.h"
#include "pocketjson/value.h"
#include "tests/support/fake_vendor.h"
#include "tests/support/kov_beans.h"
#include "tests/support/kov_world.h"

// What the Java side's target object is to be told, and what it was told.

// By the name of the field that the setter writes.
using Setting = std::variant<bool, double, std::string, std::vector<double>>;
using Settings = std::map<std::string, Setting>;

inline constexpr double kAmbientLight = 0.1;  // of every call
// Of the tag of the history's second entry (tests/reliability/flow.h), as the calibrator is made
// for the second look-up table.
inline constexpr const char* kTag = "tag-entry1";

// The temperature after the K. Throws what std::stoll throws, and for more than 32 bits too.
inline std::int32_t kelvinOf(const std::string& type) {
  const long long kelvin = std::stoll(type.substr(1));
  if (kelvin < INT32_MIN || kelvin > INT32_MAX) throw std::out_of_range("beyond 32 bits");
  return static_cast<std::int32_t>(kelvin);
}

inline void wantFunction(Settings& wanted, const pocketjson::Value& target,
                         const pocketjson::Value& curve) {
  static const std::map<std::string, std::string> kModels = {
      {"DICOM", "Dicom 14"},         {"CIE", "CIE 1976"},
      {"EXP", "Gamma Function"},     {"LOG_LINEAR", "Logarithmic Luminance Linear"},
      {"LINEAR", "Gamma Function"},  {"NATIVE", "Original"},
      {"USER_DEFINE", "Userdefined"}};
  const std::string function = target["DisplayFunctionType"].asString();
  const auto model = kModels.find(function);
  if (model == kModels.end()) return;
  wanted["gammaModelType"] = model->second;
  if (function == "EXP") wanted["gammaValue"] = target["ExpValue"].asDouble(0.0);
  if (function == "LINEAR") wanted["gammaValue"] = 1.0;
  if (function != "USER_DEFINE" || curve.type() != pocketjson::Value::Array) return;
  std::vector<double> points;
  for (std::size_t i = 0; i < curve.size(); ++i) points.push_back(curve[i].asDouble(0.0));
  wanted["userDefinedData"] = points;
}

// A temperature that cannot be read leaves all but the first setting out.
inline Settings settingsOf(const pocketjson::Value& target, const pocketjson::Value& curve,
                           bool isTemperatureGood) {
  const kovtest::FakeChroma& chroma = kovtest::fakeChroma();
  const std::string type = target["ColorTemperatureType"].asString("");
  Settings wanted;
  wanted["colorCalibration"] = type != "OFF";
  if (!isTemperatureGood) return wanted;
  double x = 0.0, y = 0.0;
  if (type == "CUSTOM") {
    x = target["ColorXValue"].asDouble(0.0);
    y = target["ColorYValue"].asDouble(0.0);
  } else if (type.substr(0, 1) == "K") {
    x = chroma.x;
    y = chroma.y;
  }
  wanted["colorX"] = x;
  wanted["colorY"] = y;
  if (target["IsUsedLamb"].asBool(false)) wanted["ambientLightValue"] = kAmbientLight;
  wanted["maxLuminance"] = target["LmaxValue"].asDouble(0.0);
  wanted["minLuminance"] = target["LminValue"].asDouble(0.0);
  // The other way round on the Java side.
  wanted["useMinimumLuminance"] = !target["IsUsedMeasurementLmin"].asBool(false);
  wanted["gammaModelTag"] = std::string(kTag);
  wantFunction(wanted, target, curve);
  return wanted;
}

inline bool isSame(const fakejvm::Value& told, const Setting& wanted) {
  using Kind = fakejvm::Value::Kind;
  if (const bool* truth = std::get_if<bool>(&wanted)) {
    return told.kind() == Kind::kBoolean && told.asBool() == *truth;
  }
  if (const double* number = std::get_if<double>(&wanted)) {
    return told.kind() == Kind::kDouble && plain::same(told.asDouble(), *number);
  }
  if (told.kind() != Kind::kObject || told.isNull()) return false;
  if (const std::string* text = std::get_if<std::string>(&wanted)) return told.asText() == *text;
  const std::vector<double> points = told.asObject()->doubles();
  const auto& expected = std::get<std::vector<double>>(wanted);
  if (told.asObject()->className != "[D" || points.size() != expected.size()) return false;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!plain::same(points[i], expected[i])) return false;
  }
  return true;
}

// The calibrator's target object in Java, and the arguments of the last calibration. Made before
// the calibrator.
class JavaTarget {
 public:
  explicit JavaTarget(kovtest::FakeJvm& jvm) {
    jvm->script(kovtest::kTargetClass, "<init>()V", [this](fakejvm::Call& call) {
      object = call.self;
      return fakejvm::Value();
    });
    jvm->script(kovtest::kMonitorClass, "performCalibration", [this](fakejvm::Call& call) {
      arguments = call.args;
      return fakejvm::Value();
    });
  }

  // A field that no setter writes from now on is void.
  void forget() {
    for (const char* field : kFields) object->setField(field, fakejvm::Value());
    arguments.clear();
    kovtest::fakeChroma().inputs.clear();
  }

  // The first field that is not as wanted; empty: none. What is not wanted is not to be told.
  std::string difference(const Settings& wanted) const {
    for (const char* field : kFields) {
      const auto found = wanted.find(field);
      const fakejvm::Value told = object->field(field);
      const bool isTold = told.kind() != fakejvm::Value::Kind::kVoid;
      if (found == wanted.end() ? isTold : !isSame(told, found->second)) return field;
    }
    return {};
  }

  bool isCalibratedWith(const pocketjson::Value& target) const {
    if (arguments.size() != 6 || !arguments[0].asObject()) return false;
    const auto targets = arguments[0].asObject()->elements();
    return targets.size() == 2 && targets[0].isNull() && targets[1].asObject() == object &&
           arguments[1].asBool() == target["IsUsedExternalSensors"].asBool(false) &&
           arguments[2].asLong() == target["numberOfGraylevels"].asInt(0) &&
           arguments[3].asBool() == target["measureBacklightResponse"].asBool(false);
  }

 private:
  static constexpr const char* kFields[] = {
      "ambientLightValue",  "colorCalibration", "colorX",       "colorY",       "gammaModelTag",
      "gammaModelType",     "gammaValue",       "maxLuminance", "minLuminance", "userDefinedData",
      "useMinimumLuminance"};

  fakejvm::ObjectRef object;
  std::vector<fakejvm::Value> arguments;
};

#endif  // L5KOV_FUZZ_JAVA_TARGET_H_
