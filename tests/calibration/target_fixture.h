// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_CALIBRATION_TARGET_FIXTURE_H_
#define L5KOV_TESTS_CALIBRATION_TARGET_FIXTURE_H_

#include <cstdint>
#include <stdexcept>
#include <string>

#include "tests/calibration/calibrator_fixture.h"

namespace kovtest {

class TargetTranslation : public CalibratorTest {
 protected:
  Lines callsFor(const pocketjson::Value& target, double ambientLight = 0.0) {
    KovCalibrator made = calibrator();
    jvm.log.clear();
    EXPECT_EQ(setTarget(made, target, {}, ambientLight), OM_OK);
    Lines calls = targetCalls(jvm);
    EXPECT_EQ(calls.back(), "setGammaModelTag(\"tag-entry0\")");
    calls.pop_back();
    return calls;
  }
  Lines callsFor(const char* key, const pocketjson::Value& value) {
    pocketjson::Value target;
    target[key] = value;
    return callsFor(target);
  }
  static pocketjson::Value colour(const char* type) {
    pocketjson::Value target;
    target["ColorTemperatureType"] = type;
    return target;
  }
  // What execute() passes after this target.
  struct Fields {
    bool useExternalSensors;
    int graylevelCount;
    bool measureBacklightResponse;
    bool operator==(const Fields&) const = default;
  };
  Fields fieldsOf(KovCalibrator& made) {
    Fields fields{};
    world.onCalibrate([&](CalibrationRun& run) {
      fields = {run.useExternalSensors, run.graylevelCount, run.measureBacklightResponse};
    });
    EXPECT_EQ(made.execute(), OM_OK);
    return fields;
  }
  Fields fieldsFor(const char* key, const pocketjson::Value& value) {
    pocketjson::Value target;
    target[key] = value;
    KovCalibrator made = calibrator();
    EXPECT_EQ(setTarget(made, target), OM_OK);
    return fieldsOf(made);
  }
  // The temperature that the colour library is asked for.
  std::int32_t kelvinOf(const char* type) {
    fakeChroma().inputs.clear();
    const Lines calls = callsFor(colour(type));
    EXPECT_EQ(calls.at(1), "setColorX(0.3127)") << type;
    EXPECT_EQ(fakeChroma().inputs.size(), 1U);
    const auto kelvin = FakeChroma::temperatureOf(fakeChroma().inputs.at(0));
    EXPECT_TRUE(kelvin.has_value()) << "the rest of the record is not zero";
    return kelvin.value_or(-999);
  }
};

// What a target without a colour point, and one without luminances, comes to.
inline const Lines kNoColourPoint = {"setColorCalibration(1)", "setColorX(0)", "setColorY(0)"};
inline const Lines kNoLuminance = {"setMaxLuminance(0)", "setMinLuminance(0)",
                                   "setUseMinimumLuminance(1)"};

// The standard exception that leaves setCalibrationTarget().
inline std::string errorOf(lumora::kov::KovCalibrator& made, const pocketjson::Value& target) {
  try {
    setTarget(made, target);
  } catch (const std::invalid_argument& e) {
    return std::string("invalid: ") + e.what();
  } catch (const std::out_of_range& e) {
    return std::string("range: ") + e.what();
  }
  return "nothing";
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_CALIBRATION_TARGET_FIXTURE_H_
