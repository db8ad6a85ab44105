// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_PLAIN_TARGET_H_
#define L5KOV_FUZZ_PLAIN_TARGET_H_

#include <nlohmann/json.hpp>

#include <charconv>
#include <optional>
#include <string>
#include <vector>

#include "target/target_request.h"

// A target file read a second time, key by key out of an unordered tree: what it asks for, and
// whether it is a target file at all.
class PlainTarget {
 public:
  using Json = nlohmann::json;

  explicit PlainTarget(const std::string& text) : file(Json::parse(text, nullptr, false)) {
    isGood = file.is_object() && hasKnownMembers() && hasGoodLevels() && hasGoodWhite() &&
             hasGoodAmbient();
  }

  bool isTarget() const { return isGood; }

  // Each holds for a target only.
  double number(const char* key, double missing) const {
    return has(key) ? file[key].get<double>() : missing;
  }
  bool truth(const char* key, bool missing) const {
    return has(key) ? file[key].get<bool>() : missing;
  }
  std::string text(const char* key, const char* missing) const {
    return has(key) ? file[key].get<std::string>() : missing;
  }
  std::optional<double> maybe(const char* key) const {
    return has(key) ? std::optional<double>(file[key].get<double>()) : std::nullopt;
  }
  std::vector<double> curve() const {
    return has("curve") ? file["curve"].get<std::vector<double>>() : std::vector<double>();
  }
  bool has(const char* key) const { return file.contains(key); }

  // A file that gives a minimum and does not speak of measuring it wants that minimum.
  bool measuresMinimum() const { return truth("IsUsedMeasurementLmin", !has("LminValue")); }
  // Light that is given counts unless the file says that it does not.
  std::optional<double> ambient() const {
    return truth("IsUsedLamb", true) ? maybe("ambientLight") : std::nullopt;
  }
  std::optional<int> kelvin() const {
    const std::string white = text("ColorTemperatureType", "OFF");
    int kelvin = 0;
    const char* end = white.data() + white.size();
    if (white.size() < 2 || white[0] != 'K') return std::nullopt;
    if (std::from_chars(white.data() + 1, end, kelvin).ptr != end) return std::nullopt;
    return kelvin >= 1000 && kelvin <= 100000 ? std::optional<int>(kelvin) : std::nullopt;
  }

 private:
  static bool isKind(const std::string& key, const Json& value) {
    for (const char* number : {"LmaxValue", "LminValue", "ExpValue", "ColorXValue", "ColorYValue",
                               "ambientLight", "numberOfGraylevels"}) {
      if (key == number) return value.is_number();
    }
    for (const char* truth : {"IsUsedMeasurementLmin", "IsUsedExternalSensors",
                              "measureBacklightResponse", "IsUsedLamb"}) {
      if (key == truth) return value.is_boolean();
    }
    if (key == "ColorTemperatureType") return value.is_string();
    if (key == "DisplayFunctionType") return value.is_string() && isFunction(value);
    if (key != "curve" || !value.is_array()) return false;
    for (const Json& point : value) {
      if (!point.is_number()) return false;
    }
    return true;
  }

  static bool isFunction(const std::string& name) {
    for (const char* known :
         {"DICOM", "CIE", "EXP", "LOG_LINEAR", "LINEAR", "NATIVE", "USER_DEFINE"}) {
      if (name == known) return true;
    }
    return false;
  }

  bool hasKnownMembers() const {
    for (const auto& [key, value] : file.items()) {
      if (!isKind(key, value)) return false;
    }
    return true;
  }
  bool hasGoodLevels() const {
    if (!has("numberOfGraylevels")) return true;
    const double levels = number("numberOfGraylevels", 0.0);
    return file["numberOfGraylevels"].is_number_integer() &&
           (levels == 0.0 || (levels >= 3.0 && levels <= 256.0));
  }
  bool hasGoodWhite() const {
    const std::string white = text("ColorTemperatureType", "OFF");
    return white == "OFF" || white == "CUSTOM" || kelvin().has_value();
  }
  bool hasGoodAmbient() const { return !truth("IsUsedLamb", false) || has("ambientLight"); }

  Json file;
  bool isGood = false;
};

#endif  // L5KOV_FUZZ_PLAIN_TARGET_H_
