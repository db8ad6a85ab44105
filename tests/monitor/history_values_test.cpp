// SPDX-License-Identifier: MIT
// History records: fields that are made of the Java library's values.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrationHisInfo;

class HistoryValues : public MonitorTest {
 protected:
  // Of the one entry.
  KovCalibrationHisInfo record() { return handle().getExtractCalibrationData().at(0); }
};

TEST_F(HistoryValues, HorizontalFrequencyIsTruncatedTowardZero) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  const auto reported = [&](double frequency) {
    entry.entry->setField("horizontalFrequency", frequency);
    return record().horizontalFrequency;
  };
  EXPECT_EQ(reported(75.5), 75500);
  EXPECT_EQ(reported(0.0019999), 1);
  EXPECT_EQ(reported(-0.0019999), -1);
  EXPECT_EQ(reported(64.0166), 64016);
  EXPECT_EQ(reported(2147483.647), 2147483647);
}

// The language leaves it undefined; here it is what x64 processors do.
TEST_F(HistoryValues, HorizontalFrequencyBeyondThirtyTwoBitsIsTheSmallestNumber) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  for (const double frequency :
       {2147483.648, 1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
    entry.entry->setField("horizontalFrequency", frequency);
    EXPECT_EQ(record().horizontalFrequency, std::numeric_limits<std::int32_t>::min()) << frequency;
  }
}

TEST_F(HistoryValues, DeviceKindIsZeroForExactlyNone) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  const auto kindOf = [&](const char* name) {
    entry.deviceType->setField("name", name);
    return static_cast<int>(record().target.deviceKind);
  };
  EXPECT_EQ(kindOf("None"), 0);
  EXPECT_EQ(kindOf("none"), 1);
  EXPECT_EQ(kindOf("NONE"), 1);
  EXPECT_EQ(kindOf("None "), 1);
  EXPECT_EQ(kindOf(""), 1);
}

TEST_F(HistoryValues, ColourModeIsCustomForAColourCalibration) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  entry.target->setField("colorX", 0.31).setField("colorY", 0.33);
  EXPECT_EQ(record().target.colorMode, "OFF");
  EXPECT_EQ(record().target.colorX, 0.0) << "coordinates count with a colour calibration only";
  EXPECT_EQ(record().target.colorY, 0.0);
  entry.target->setField("colorCalibration", true);
  EXPECT_EQ(record().target.colorMode, "CUSTOM");
  EXPECT_EQ(record().target.colorX, 0.31);
  EXPECT_EQ(record().target.colorY, 0.33);
}

TEST_F(HistoryValues, GammaValueIsKeptForCodeTwoOnly) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  const auto gammaOf = [&](const char* type, double value) {
    entry.target->setField("gammaModelType", type).setField("gammaValue", value);
    return record().target.gammaValue;
  };
  EXPECT_EQ(gammaOf("Gamma Function", 2.2), 2.2);
  EXPECT_EQ(gammaOf("Gamma Function", 1.0), 0.0);
  EXPECT_EQ(gammaOf("Original", 2.2), 0.0);
}

TEST_F(HistoryValues, DeviceIdIsTranslatedAndAnUnknownCodeStaysAsItIs) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  const auto idOf = [&](int code) {
    entry.deviceType->setField("id", code);
    return record().target.deviceId;
  };
  EXPECT_EQ(idOf(6), 163);
  EXPECT_EQ(idOf(7), 163);
  EXPECT_EQ(idOf(15), 302);
  EXPECT_EQ(idOf(23), 302);
  EXPECT_EQ(idOf(-1), 1003);
  EXPECT_EQ(idOf(1004), 161);
  EXPECT_EQ(idOf(99), 99);
}

}  // namespace
