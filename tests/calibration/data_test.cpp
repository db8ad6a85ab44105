// SPDX-License-Identifier: MIT
// What getCalibrationData() makes of the results that were reported.
#include <gtest/gtest.h>

#include <limits>

#include "tests/calibration/calibrator_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using pocketjson::Value;

class CalibrationData : public CalibratorTest {
 protected:
  // A target that asks for the measured minimum luminance makes isUseMinimumLuminance() false.
  static void setUseMinimum(KovCalibrator& made, bool use) {
    Value target;
    target["IsUsedMeasurementLmin"] = !use;
    ASSERT_EQ(setTarget(made, target), OM_OK);
  }
  void finish(KovCalibrator& made, double minimum, int backlight) {
    world.onCalibrate([=](CalibrationRun& run) { run.finishWith(300.0, minimum, backlight); });
    ASSERT_EQ(made.execute(), OM_OK);
    jvm.log.clear();
  }
};

TEST_F(CalibrationData, WithUseMinimumLuminanceTheOnlyMemberIsTheSensorReading) {
  KovCalibrator made = calibrator();
  setUseMinimum(made, true);
  finish(made, 0.35, 812);
  const Value data = made.getCalibrationData();
  ASSERT_EQ(data.type(), Value::Object);
  EXPECT_EQ(data.keys(), std::vector<std::string>{"photoSensorAD"});
  EXPECT_EQ(data["photoSensorAD"].type(), Value::Int);
  EXPECT_EQ(data["photoSensorAD"].asInt(), 812);
}

TEST_F(CalibrationData, WithoutItAndWithoutAReadingTheOnlyMemberIsTheMinimum) {
  KovCalibrator made = calibrator();
  setUseMinimum(made, false);
  finish(made, 0.35, -1);
  const Value data = made.getCalibrationData();
  ASSERT_EQ(data.type(), Value::Object);
  EXPECT_EQ(data.keys(), std::vector<std::string>{"calibrationTarget"});
  EXPECT_EQ(data["calibrationTarget"].keys(), std::vector<std::string>{"lmin"});
  EXPECT_EQ(data["calibrationTarget"]["lmin"].type(), Value::Double);
  EXPECT_EQ(data["calibrationTarget"]["lmin"].asDouble(), 0.35);
}

TEST_F(CalibrationData, BothPartsPresent) {
  KovCalibrator made = calibrator(1);
  setUseMinimum(made, false);
  finish(made, 0.5, 0);
  const Value data = made.getCalibrationData();
  EXPECT_EQ(data.keys(), (std::vector<std::string>{"calibrationTarget", "photoSensorAD"}));
  EXPECT_EQ(data["photoSensorAD"].asInt(-1), 0) << "0 is a reading";
}

TEST_F(CalibrationData, BothPartsAbsentGivesTheEmptyTextAndNotAnEmptyObject) {
  KovCalibrator made = calibrator();
  setUseMinimum(made, true);
  finish(made, 0.35, -1);
  const Value data = made.getCalibrationData();
  EXPECT_EQ(data.type(), Value::String);
  EXPECT_EQ(data.asString("default"), "");
}

TEST_F(CalibrationData, AnyNegativeReadingIsLeftOut) {
  KovCalibrator made = calibrator();
  setUseMinimum(made, true);
  finish(made, 0.35, std::numeric_limits<int>::min());
  EXPECT_EQ(made.getCalibrationData().type(), Value::String);
}

TEST_F(CalibrationData, AsksInThisOrder) {
  KovCalibrator made = calibrator(1);
  setUseMinimum(made, false);
  finish(made, 0.35, 812);
  made.getCalibrationData();
  const std::string result = jvm.log.lines().at(4).substr(std::string("NewGlobalRef ").size());
  EXPECT_EQ(
      jvm.log,
      inFrame(guardedObject("ArrayList#1.get(1)", result) +
              guarded("CallBooleanMethodV CalibrationTargetValues#1.isUseMinimumLuminance()") +
              guarded("CallDoubleMethodV " + result + ".getMinLuminance()") +
              guarded("CallIntMethodV " + result + ".getBacklightSensorValue()") +
              released(result)));
}

TEST_F(CalibrationData, MinimumIsNotAskedForWhenItIsNotReported) {
  KovCalibrator made = calibrator();
  setUseMinimum(made, true);
  finish(made, 0.35, 812);
  made.getCalibrationData();
  for (const std::string& call : jvm.log.javaCalls()) {
    EXPECT_EQ(call.find("getMinLuminance"), std::string::npos);
  }
}

TEST_F(CalibrationData, NoFinishCallbackGivesTheEmptyTextAndTheMessageOfTheFailedGet) {
  KovCalibrator made = calibrator(2);
  const Value data = made.getCalibrationData();
  EXPECT_EQ(data.type(), Value::String);
  EXPECT_EQ(data.asString("default"), "");
  EXPECT_EQ(made.getErrorMsg(), "Index 2 out of bounds for length 0");
}

TEST_F(CalibrationData, NegativeModeGivesTheEmptyText) {
  KovCalibrator made = calibrator(-1);
  finish(made, 0.35, 812);
  EXPECT_EQ(made.getCalibrationData().type(), Value::String);
  EXPECT_EQ(made.getErrorMsg(), "Index -1 out of bounds for length 0");
}

TEST_F(CalibrationData, ElementIsTheOneAtTheModesIndex) {
  KovCalibrator made = calibrator(1);
  world.onCalibrate([&](CalibrationRun& run) {
    run.finish(fakejvm::makeList({world.result("a", 1, 0.1, 10), world.result("b", 2, 0.2, 20),
                                  world.result("c", 3, 0.3, 30)}));
  });
  ASSERT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 20);
  EXPECT_EQ(made.getCalibrationData()["calibrationTarget"]["lmin"].asDouble(), 0.2);
}

TEST_F(CalibrationData, SecondExecuteStillReportsTheElementOfTheFirstRun) {
  KovCalibrator made = calibrator();
  finish(made, 0.1, 10);
  finish(made, 0.2, 20);
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 10) << "results are appended";
}

TEST_F(CalibrationData, FirstRunWithoutResultsLetsTheSecondFillTheIndex) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun&) {});
  made.execute();
  finish(made, 0.2, 20);
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 20);
}

TEST_F(CalibrationData, FailureOfALaterGetterKeepsWhatWasBuilt) {
  KovCalibrator made = calibrator();
  jvm->script(kResultClass, "getBacklightSensorValue", fakejvm::throws("java/lang/Error", "dark"));
  finish(made, 0.35, 812);
  const Value data = made.getCalibrationData();
  EXPECT_EQ(data.keys(), std::vector<std::string>{"calibrationTarget"});
  EXPECT_EQ(made.getErrorMsg(), "dark");
}

TEST_F(CalibrationData, FailureOfTheMinimumGivesTheEmptyText) {
  KovCalibrator made = calibrator();
  jvm->script(kResultClass, "getMinLuminance", fakejvm::throws("java/lang/Error", "dark"));
  finish(made, 0.35, 812);
  const Value data = made.getCalibrationData();
  EXPECT_EQ(data.type(), Value::String);
  EXPECT_EQ(data.asString("default"), "");
  EXPECT_EQ(made.getErrorMsg(), "dark");
}

}  // namespace
