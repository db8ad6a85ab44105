// SPDX-License-Identifier: MIT
#include <nlohmann/json.hpp>

#include "failure.h"
#include "record/run_record_json.h"
#include "target/flag_values.h"
#include "target/target_request.h"
#include "target/white_point.h"

namespace kovctl {
namespace {

using Json = nlohmann::ordered_json;

/// One target file, member by member.
class TargetFile {
 public:
  TargetFile(const std::string& fileName, TargetRequest base)
      : name(fileName), request(std::move(base)) {}

  TargetRequest take(const Json& file) {
    if (!file.is_object()) refuse("", "an object with the target's members");
    for (const auto& [key, value] : file.items()) takeMember(key, value);
    finishWhite();
    finishAmbient();
    return request;
  }

 private:
  [[noreturn]] void refuse(const std::string& key, const std::string& wanted) const {
    throw Failure(ExitCode::kUsage, name + ": " + (key.empty() ? "" : "\"" + key + "\" must be ") +
                                        wanted + (key.empty() ? " is needed" : ""));
  }

  double number(const std::string& key, const Json& value) const {
    if (!value.is_number()) refuse(key, "a number");
    return value.get<double>();
  }

  bool flag(const std::string& key, const Json& value) const {
    if (!value.is_boolean()) refuse(key, "true or false");
    return value.get<bool>();
  }

  std::string text(const std::string& key, const Json& value) const {
    if (!value.is_string()) refuse(key, "a text");
    return value.get<std::string>();
  }

  void takeMember(const std::string& key, const Json& value) {
    TargetInfo& target = request.target;
    if (key == "LmaxValue") {
      target.lmax = number(key, value);
    } else if (key == "LminValue") {
      target.lmin = number(key, value);
      request.target.useMeasuredLmin = measuredLmin.value_or(false);
    } else if (key == "IsUsedMeasurementLmin") {
      measuredLmin = target.useMeasuredLmin = flag(key, value);
    } else if (key == "DisplayFunctionType") {
      target.function = function(text(key, value));
    } else if (key == "ExpValue") {
      target.exponent = number(key, value);
    } else if (key == "numberOfGraylevels") {
      if (!value.is_number_integer()) refuse(key, "a whole number");
      target.levels = levelsFlag(name + ": " + key, value.dump());
    } else if (key == "IsUsedExternalSensors") {
      request.useExternalSensors = flag(key, value);
    } else if (key == "measureBacklightResponse") {
      request.measureBacklightResponse = flag(key, value);
    } else if (key == "curve") {
      takeCurve(value);
    } else {
      takeLight(key, value);
    }
  }

  void takeLight(const std::string& key, const Json& value) {
    if (key == "ColorTemperatureType") {
      colorType = text(key, value);
    } else if (key == "ColorXValue") {
      x = number(key, value);
    } else if (key == "ColorYValue") {
      y = number(key, value);
    } else if (key == "IsUsedLamb") {
      usesAmbient = flag(key, value);
    } else if (key == "ambientLight") {
      ambient = number(key, value);
    } else {
      throw Failure(ExitCode::kUsage, name + ": \"" + key + "\" is no member of a target");
    }
  }

  void takeCurve(const Json& value) {
    if (!value.is_array()) refuse("curve", "a list of numbers");
    request.target.userCurve.clear();
    for (const Json& point : value) request.target.userCurve.push_back(number("curve", point));
  }

  DisplayFunction function(const std::string& wanted) const {
    for (const auto function :
         {DisplayFunction::kDicom, DisplayFunction::kCie, DisplayFunction::kExp,
          DisplayFunction::kLogLinear, DisplayFunction::kLinear, DisplayFunction::kNative,
          DisplayFunction::kUserDefine}) {
      if (wanted == nameOf(function)) return function;
    }
    refuse("DisplayFunctionType",
           "DICOM, CIE, EXP, LOG_LINEAR, LINEAR, NATIVE or USER_DEFINE, not " + wanted);
  }

  // The library takes any other text as a colour of 0/0; nobody means that.
  void finishWhite() {
    if (!colorType) return;
    TargetInfo& target = request.target;
    target.white.reset();
    target.whiteName = *colorType;
    if (*colorType == "CUSTOM") {
      target.white = Chromaticity{x, y};
    } else if (colorType->size() > 1 && colorType->front() == 'K') {
      target.white = whitePointOf(kelvinFlag(name + ": ColorTemperatureType", *colorType));
    } else if (*colorType != "OFF") {
      refuse("ColorTemperatureType", "OFF, CUSTOM or K and a temperature such as K6500");
    }
  }

  void finishAmbient() {
    if (usesAmbient == false) request.target.ambient.reset();
    if (usesAmbient != false && ambient) request.target.ambient = *ambient;
    if (usesAmbient == true && !ambient)
      refuse("ambientLight", "there where \"IsUsedLamb\" is true");
  }

  std::string name;
  TargetRequest request;
  std::optional<bool> measuredLmin;
  std::optional<std::string> colorType;
  double x = 0.0;
  double y = 0.0;
  std::optional<bool> usesAmbient;
  std::optional<double> ambient;
};

}  // namespace

TargetRequest parseTargetFile(std::string_view text, const std::string& name, TargetRequest base) {
  Json file;
  try {
    file = Json::parse(text);
  } catch (const Json::exception& error) {  // no JSON, or a number that no double holds
    throw Failure(ExitCode::kUsage, name + ": not JSON: " + error.what());
  }
  return TargetFile(name, std::move(base)).take(file);
}

}  // namespace kovctl
