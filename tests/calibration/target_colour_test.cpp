// SPDX-License-Identifier: MIT
// Translation of a target: the colour point.
#include <gtest/gtest.h>

#include <limits>

#include "tests/calibration/target_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using pocketjson::Value;

class TargetColour : public TargetTranslation {};

TEST_F(TargetColour, ColourOffSetsNoColourCalibration) {
  Value target = colour("OFF");
  target["ColorXValue"] = 0.31;
  EXPECT_EQ(callsFor(target),
            (Lines{"setColorCalibration(0)", "setColorX(0)", "setColorY(0)"}) + kNoLuminance);
  EXPECT_TRUE(fakeChroma().inputs.empty());
}

TEST_F(TargetColour, ColourOffInLowerCaseEnablesColourCalibration) {
  EXPECT_EQ(callsFor(colour("off")), kNoColourPoint + kNoLuminance);
}

TEST_F(TargetColour, ColourCustomTakesTheTwoValues) {
  Value target = colour("CUSTOM");
  target["ColorXValue"] = "0.31";
  target["ColorYValue"] = 1;
  EXPECT_EQ(callsFor(target),
            (Lines{"setColorCalibration(1)", "setColorX(0.31)", "setColorY(1)"}) + kNoLuminance);
}

TEST_F(TargetColour, ColourOfAnyOtherTextIsZeroZero) {
  for (const char* type : {"", "Custom", "CUSTOM ", "k6500", "6500", "OFF ", " K6500"}) {
    Value target = colour(type);
    target["ColorXValue"] = 0.31;
    target["ColorYValue"] = 0.33;
    EXPECT_EQ(callsFor(target), kNoColourPoint + kNoLuminance) << type;
  }
  EXPECT_TRUE(fakeChroma().inputs.empty());
}

TEST_F(TargetColour, ColourTemperatureComesFromTheColourLibrary) {
  fakeChroma().x = 0.283145;
  fakeChroma().y = 0.297113;
  fakeChroma().result = -1;  // not examined
  EXPECT_EQ(callsFor(colour("K9300")),
            (Lines{"setColorCalibration(1)", "setColorX(0.283145)", "setColorY(0.297113)"}) +
                kNoLuminance);
  EXPECT_EQ(FakeChroma::temperatureOf(fakeChroma().inputs.at(0)), 9300);
}

TEST_F(TargetColour, ColourTemperatureIsReadAsADecimalLong) {
  EXPECT_EQ(kelvinOf("K6500"), 6500);
  EXPECT_EQ(kelvinOf("K6500K"), 6500);
  EXPECT_EQ(kelvinOf("K6500.9"), 6500);
  EXPECT_EQ(kelvinOf("K 6500"), 6500);
  EXPECT_EQ(kelvinOf("K \t\n\v\f\r6500"), 6500);
  EXPECT_EQ(kelvinOf("K+6500"), 6500);
  EXPECT_EQ(kelvinOf("K-6500"), -6500);
  EXPECT_EQ(kelvinOf("K 0006500"), 6500);
  EXPECT_EQ(kelvinOf("K0x20"), 0);
  EXPECT_EQ(kelvinOf("K2147483647"), 2147483647);
  EXPECT_EQ(kelvinOf("K-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST_F(TargetColour, ColourTemperatureWithoutDigitsLeavesAsInvalidArgument) {
  KovCalibrator made = calibrator();
  for (const char* type : {"K", "Kelvin", "K ", "K+", "K-", "K- 5", "K.5", "KK6500"}) {
    EXPECT_EQ(errorOf(made, colour(type)), "invalid: invalid stol argument") << type;
  }
  EXPECT_EQ(made.getErrorMsg(), "");
  EXPECT_TRUE(fakeChroma().inputs.empty());
}

TEST_F(TargetColour, ColourTemperatureBeyondThirtyTwoBitsLeavesAsOutOfRange) {
  KovCalibrator made = calibrator();
  for (const char* type : {"K2147483648", "K-2147483649", "K99999999999999999999999",
                           "K-99999999999999999999999", "K4294967296"}) {
    EXPECT_EQ(errorOf(made, colour(type)), "range: stol argument out of range") << type;
  }
}

}  // namespace
