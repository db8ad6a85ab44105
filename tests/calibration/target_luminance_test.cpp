// SPDX-License-Identifier: MIT
// Translation of a target: luminance, ambient light and the calibrator's own fields.
#include <gtest/gtest.h>

#include "tests/calibration/target_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using pocketjson::Value;

class TargetLuminance : public TargetTranslation {};

TEST_F(TargetLuminance, EmptyTargetSetsTheDefaults) {
  Value empty;
  empty.setType(Value::Object);
  EXPECT_EQ(callsFor(empty), kNoColourPoint + kNoLuminance);
  KovCalibrator made = calibrator();
  EXPECT_EQ(setTarget(made, empty), OM_OK);
  EXPECT_EQ(fieldsOf(made), (Fields{false, 0, false})) << "0 replaces the 52 of a new calibrator";
}

TEST_F(TargetLuminance, TargetThatIsNoObjectReadsAsEmpty) {
  for (const Value& target : {Value(), Value("text"), Value(5), Value(std::vector<Value>(3))}) {
    EXPECT_EQ(callsFor(target), kNoColourPoint + kNoLuminance);
  }
}

TEST_F(TargetLuminance, FullTargetCallsInThisOrder) {
  Value target;
  target["LmaxValue"] = 250.5;
  target["LminValue"] = 0.5;
  target["IsUsedMeasurementLmin"] = true;
  target["IsUsedLamb"] = true;
  target["ColorTemperatureType"] = "CUSTOM";
  target["ColorXValue"] = 0.31;
  target["ColorYValue"] = 0.33;
  target["DisplayFunctionType"] = "CIE";
  EXPECT_EQ(callsFor(target, 0.75),
            (Lines{"setColorCalibration(1)", "setColorX(0.31)", "setColorY(0.33)",
                   "setAmbientLightValue(0.75)", "setMaxLuminance(250.5)", "setMinLuminance(0.5)",
                   "setUseMinimumLuminance(0)", "setGammaModelType(\"CIE 1976\")"}));
}

TEST_F(TargetLuminance, StepsMakeTheseJniCalls) {
  KovCalibrator made = calibrator();
  jvm.log.clear();
  Value target = colour("OFF");
  target["DisplayFunctionType"] = "EXP";
  EXPECT_EQ(setTarget(made, target), OM_OK);
  const auto on = [](const std::string& call) {
    return guarded("CallVoidMethodV CalibrationTargetValues#1." + call);
  };
  EXPECT_EQ(
      jvm.log,
      inFrame(on("setColorCalibration(0)") + on("setColorX(0)") + on("setColorY(0)") +
              on("setMaxLuminance(0)") + on("setMinLuminance(0)") +
              on("setUseMinimumLuminance(1)")) +
          inFrame(Lines{"NewStringUTF \"Gamma Function\""} +
                  on("setGammaModelType(\"Gamma Function\")") + on("setGammaValue(0)")) +
          looksUp("monitor") +
          inFrame(guardedObject("monitor.extractCalibrationData()", "monitorHistory") +
                  guardedObject("monitorHistory.get(0)", "entry0") +
                  guardedObject("entry0.getCalibrationTargetValues()", "entry0Target") +
                  guardedText("entry0Target.getGammaModelTag()", "tag-entry0") +
                  released("entry0Target") + released("entry0") + released("monitorHistory")) +
          inFrame(Lines{"NewStringUTF \"tag-entry0\""} + on("setGammaModelTag(\"tag-entry0\")")) +
          released("monitor"));
}

TEST_F(TargetLuminance, LmaxValueConverts) {
  const auto lmax = [&](const Value& value) { return callsFor("LmaxValue", value).at(3); };
  EXPECT_EQ(lmax("250.5"), "setMaxLuminance(250.5)");
  EXPECT_EQ(lmax(true), "setMaxLuminance(1)");
  EXPECT_EQ(lmax(300), "setMaxLuminance(300)");
  EXPECT_EQ(lmax(250.5), "setMaxLuminance(250.5)");
  EXPECT_EQ(lmax("bright"), "setMaxLuminance(0)");
  EXPECT_EQ(lmax(Value()), "setMaxLuminance(0)");
}

TEST_F(TargetLuminance, LminValueConverts) {
  const auto lmin = [&](const Value& value) { return callsFor("LminValue", value).at(4); };
  EXPECT_EQ(lmin(0.25), "setMinLuminance(0.25)");
  EXPECT_EQ(lmin("0.25"), "setMinLuminance(0.25)");
  EXPECT_EQ(lmin(std::vector<Value>(1)), "setMinLuminance(0)");
}

TEST_F(TargetLuminance, UseMinimumLuminanceIsTheNegationOfIsUsedMeasurementLmin) {
  const auto flag = [&](const Value& value) {
    return callsFor("IsUsedMeasurementLmin", value).at(5);
  };
  EXPECT_EQ(flag(true), "setUseMinimumLuminance(0)");
  EXPECT_EQ(flag(false), "setUseMinimumLuminance(1)");
  EXPECT_EQ(flag("true"), "setUseMinimumLuminance(0)");
  EXPECT_EQ(flag("yes"), "setUseMinimumLuminance(1)");
  EXPECT_EQ(flag(2), "setUseMinimumLuminance(0)");
}

TEST_F(TargetLuminance, AmbientLightIsSetOnlyWhenIsUsedLamb) {
  Value target;
  target["IsUsedLamb"] = true;
  EXPECT_EQ(callsFor(target, 1.5).at(3), "setAmbientLightValue(1.5)");
  target["IsUsedLamb"] = false;
  EXPECT_EQ(callsFor(target, 1.5), kNoColourPoint + kNoLuminance);
}

TEST_F(TargetLuminance, GraylevelsConvert) {
  const auto levels = [&](const Value& value) {
    return fieldsFor("numberOfGraylevels", value).graylevelCount;
  };
  EXPECT_EQ(levels(18), 18);
  EXPECT_EQ(levels(17.5), 18);
  EXPECT_EQ(levels("0x20"), 32);
  EXPECT_EQ(levels("32 levels"), 0);
  EXPECT_EQ(levels(Value()), 0);
  EXPECT_EQ(levels(-3), -3);
}

TEST_F(TargetLuminance, FlagsConvert) {
  EXPECT_EQ(fieldsFor("IsUsedExternalSensors", true), (Fields{true, 0, false}));
  EXPECT_EQ(fieldsFor("IsUsedExternalSensors", "true"), (Fields{true, 0, false}));
  EXPECT_EQ(fieldsFor("IsUsedExternalSensors", "1"), (Fields{false, 0, false}));
  EXPECT_EQ(fieldsFor("measureBacklightResponse", 1), (Fields{false, 0, true}));
  EXPECT_EQ(fieldsFor("measureBacklightResponse", Value()), (Fields{false, 0, false}));
}

TEST_F(TargetLuminance, KeysAreExact) {
  EXPECT_EQ(callsFor("lmaxValue", Value(250.5)), kNoColourPoint + kNoLuminance);
  EXPECT_EQ(callsFor("LmaxValue ", Value(250.5)), kNoColourPoint + kNoLuminance);
}

// All keys are read, and three stored, before the first Java call.
TEST_F(TargetLuminance, FieldsAreStoredAlsoWhenTheTemperatureCannotBeRead) {
  Value target = colour("K");
  target["IsUsedExternalSensors"] = true;
  target["numberOfGraylevels"] = 7;
  target["measureBacklightResponse"] = true;
  KovCalibrator made = calibrator();
  jvm.log.clear();
  EXPECT_EQ(errorOf(made, target), "invalid: invalid stol argument");
  EXPECT_EQ(targetCalls(jvm), Lines{"setColorCalibration(1)"}) << "what was set stays set";
  EXPECT_EQ(fieldsOf(made), (Fields{true, 7, true}));
}

TEST_F(TargetLuminance, FieldsAreStoredAlsoWhenTheFirstJavaCallFails) {
  jvm->script(kTargetClass, "setColorCalibration", fakejvm::throws("java/lang/Error", "no"));
  Value target;
  target["numberOfGraylevels"] = 7;
  KovCalibrator made = calibrator();
  EXPECT_EQ(setTarget(made, target), OM_ERR_JAVA);
  EXPECT_EQ(targetCalls(jvm), Lines{"setColorCalibration(1)"}) << "the later steps are not taken";
  EXPECT_EQ(fieldsOf(made).graylevelCount, 7);
}

TEST_F(TargetLuminance, StepsStopAtTheFirstFailureAndKeepWhatWasSet) {
  jvm->script(kTargetClass, "setMinLuminance", fakejvm::throws("java/lang/Error", "dark"));
  Value target;
  target["DisplayFunctionType"] = "CIE";
  KovCalibrator made = calibrator();
  EXPECT_EQ(setTarget(made, target), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "dark");
  EXPECT_EQ(targetCalls(jvm), (kNoColourPoint + Lines{"setMaxLuminance(0)", "setMinLuminance(0)"}));
}

TEST_F(TargetLuminance, UnusedArgumentsAreIgnored) {
  Value third;
  third["LmaxValue"] = 999.0;
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.setCalibrationTarget({}, {}, third, 0.5, true), OM_OK);
  Lines calls = targetCalls(jvm);
  calls.pop_back();
  EXPECT_EQ(calls, kNoColourPoint + kNoLuminance);
}

TEST_F(TargetLuminance, TargetItselfIsNotChanged) {
  Value target;
  target["LmaxValue"] = 1.0;
  KovCalibrator made = calibrator();
  setTarget(made, target);
  EXPECT_EQ(target.keys(), std::vector<std::string>{"LmaxValue"});
  const Value text = "text";
  setTarget(made, text);
  EXPECT_EQ(text.asString(), "text");
}

}  // namespace
