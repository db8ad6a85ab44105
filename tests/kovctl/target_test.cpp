// SPDX-License-Identifier: MIT
#include "target/target_request.h"

#include <gtest/gtest.h>

#include "failure.h"
#include "target/flag_values.h"

namespace kovctl {
namespace {

TargetRequest parse(const std::string& text) {
  return parseTargetFile(text, "target.json", defaultTarget());
}

std::string refusal(const std::string& text) {
  try {
    parse(text);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.code, ExitCode::kUsage);
    return failure.what();
  }
  ADD_FAILURE() << text << " was taken";
  return "";
}

TEST(TargetFile, TakesTheLibrarysKeys) {
  const TargetRequest request = parse(R"({"LmaxValue": 180, "LminValue": 0.5, "IsUsedLamb": true,
    "ambientLight": 0.2, "ColorTemperatureType": "CUSTOM", "ColorXValue": 0.31,
    "ColorYValue": 0.33, "DisplayFunctionType": "EXP", "ExpValue": 1.8, "numberOfGraylevels": 18,
    "IsUsedExternalSensors": true, "measureBacklightResponse": true})");
  const TargetInfo& target = request.target;
  EXPECT_EQ(target.lmax, 180.0);
  EXPECT_EQ(target.lmin, 0.5);
  EXPECT_FALSE(target.useMeasuredLmin);
  EXPECT_EQ(target.ambient, 0.2);
  EXPECT_EQ(target.white, (Chromaticity{0.31, 0.33}));
  EXPECT_EQ(target.whiteName, "CUSTOM");
  EXPECT_EQ(target.function, DisplayFunction::kExp);
  EXPECT_EQ(target.exponent, 1.8);
  EXPECT_EQ(target.levels, 18);
  EXPECT_TRUE(request.useExternalSensors);
  EXPECT_TRUE(request.measureBacklightResponse);
}

TEST(TargetFile, LeavesTheRestAsItIs) {
  EXPECT_EQ(parse("{}").target, defaultTarget().target);
  EXPECT_EQ(parse(R"({"LmaxValue": 400})").target.levels, 52);
}

TEST(TargetFile, KeepsAMeasuredBlackInEitherOrder) {
  EXPECT_TRUE(parse(R"({"LminValue": 1, "IsUsedMeasurementLmin": true})").target.useMeasuredLmin);
  EXPECT_TRUE(parse(R"({"IsUsedMeasurementLmin": true, "LminValue": 1})").target.useMeasuredLmin);
  EXPECT_FALSE(parse(R"({"LminValue": 1})").target.useMeasuredLmin);
}

TEST(TargetFile, TakesACurve) {
  EXPECT_EQ(
      parse(R"({"DisplayFunctionType": "USER_DEFINE", "curve": [0, 0.5, 1]})").target.userCurve,
      (std::vector<double>{0.0, 0.5, 1.0}));
}

TEST(TargetFile, RefusesWhatNobodyMeans) {
  EXPECT_NE(refusal("{\"Lmax\": 250}").find("\"Lmax\" is no member"), std::string::npos);
  EXPECT_NE(refusal("{\"LmaxValue\": \"250\"}").find("must be a number"), std::string::npos);
  EXPECT_NE(refusal("{\"DisplayFunctionType\": \"Dicom\"}").find("DICOM, CIE"), std::string::npos);
  EXPECT_NE(refusal("{\"ColorTemperatureType\": \"off\"}").find("OFF, CUSTOM"), std::string::npos);
  EXPECT_NE(refusal("{\"numberOfGraylevels\": 17.5}").find("whole number"), std::string::npos);
  EXPECT_NE(refusal("{\"IsUsedLamb\": true}").find("ambientLight"), std::string::npos);
  EXPECT_NE(refusal("[1]").find("object"), std::string::npos);
  EXPECT_NE(refusal("{").find("not JSON"), std::string::npos);
  EXPECT_NE(refusal(R"({"LmaxValue": 1e400})").find("target.json"), std::string::npos);
}

TargetRequest make(void (*set)(TargetFlags&)) {
  TargetFlags flags;
  set(flags);
  return makeTarget(flags);
}

TEST(TargetFlags, SetEveryPart) {
  const TargetInfo target = make([](TargetFlags& flags) {
                              flags.function = "gamma:2.2";
                              flags.lmax = "300.5";
                              flags.lmin = "0.4";
                              flags.white = "0.3,0.32";
                              flags.ambient = "0.1";
                              flags.levels = "18";
                            }).target;
  EXPECT_EQ(target.function, DisplayFunction::kExp);
  EXPECT_EQ(target.exponent, 2.2);
  EXPECT_EQ(target.lmax, 300.5);
  EXPECT_EQ(target.lmin, 0.4);
  EXPECT_FALSE(target.useMeasuredLmin);
  EXPECT_EQ(target.white, (Chromaticity{0.3, 0.32}));
  EXPECT_EQ(target.ambient, 0.1);
  EXPECT_EQ(target.levels, 18);
}

TEST(TargetFlags, TakeTheLibrarysFunctionNamesToo) {
  EXPECT_EQ(functionFlag("LOG_LINEAR"), DisplayFunction::kLogLinear);
  EXPECT_EQ(functionFlag("loglinear"), DisplayFunction::kLogLinear);
  EXPECT_THROW(functionFlag("log"), Failure);
}

TEST(TargetFlags, RefuseNumbersThatAreNone) {
  for (const char* text : {"", "x", "1x", "nan", "inf", "-1", "1e9", "1,5", " 1"}) {
    EXPECT_THROW(numberFlag("--lmax", text, 0.0, 1000.0), Failure) << text;
  }
  for (const char* text : {"1.0", "257", "-1", "1", "2", ""}) {
    EXPECT_THROW(levelsFlag("--levels", text), Failure) << text;
  }
  EXPECT_EQ(levelsFlag("--levels", "0"), 0);
  EXPECT_EQ(levelsFlag("--levels", "3"), 3);
  EXPECT_THROW(chromaticityFlag("--white", "0.3"), Failure);
  EXPECT_THROW(chromaticityFlag("--white", "0.7,0.7"), Failure);
}

TEST(TargetFlags, SayAWrongTemperatureAsItWasWritten) {
  try {
    kelvinFlag("--white", "K6500x");
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_NE(std::string(failure.what()).find("--white K6500x: "), std::string::npos);
  }
  EXPECT_EQ(kelvinFlag("--white", "K6500"), 6500);
}

TEST(TargetFlags, LeaveTheWhiteToThePanel) {
  const TargetRequest request = make([](TargetFlags& flags) { flags.lmax = "0"; });
  EXPECT_EQ(request.target.lmax, 0.0);
  const PlannedCurve plan = plannedCurve(request.target);
  EXPECT_TRUE(plan.curve && plan.isWhiteAssumed && plan.isBlackAssumed);
  EXPECT_EQ(parse(R"({"LmaxValue": 0})").target.lmax, 0.0);
  EXPECT_THROW(make([](TargetFlags& flags) { flags.lmax = "-1"; }), Failure);
}

TEST(TargetFlags, GoOverABase) {
  TargetRequest base = defaultTarget();
  base.target.lmax = 180.0;
  TargetFlags flags;
  flags.ambient = "0.1";
  const TargetInfo target = makeTarget(flags, base).target;
  EXPECT_EQ(target.lmax, 180.0);
  EXPECT_EQ(target.ambient, 0.1);
}

TEST(TargetFlags, RefuseATargetWithoutACurve) {
  EXPECT_THROW(make([](TargetFlags& flags) { flags.lmin = "300"; }), Failure);
  EXPECT_THROW(make([](TargetFlags& flags) { flags.function = "EXP"; }), Failure);
  EXPECT_THROW(make([](TargetFlags& flags) { flags.function = "user"; }), Failure);
  EXPECT_NO_THROW(make([](TargetFlags& flags) { flags.function = "native"; }));
}

TEST(TargetFlags, AreDescribedForPeople) {
  EXPECT_EQ(describe(defaultTarget().target), "DICOM, 250 cd/m², measured black, white as it is");
}

}  // namespace
}  // namespace kovctl
