// SPDX-License-Identifier: MIT
// Device codes and colour temperatures, without Java.
#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <stdexcept>
#include <utility>

#include "calibration/colour_temperature.h"
#include "calibration/measurement_device_code_map.h"
#include "tests/support/fake_vendor.h"

namespace {

using lumora::kov::chromaticityOf;
using lumora::kov::leadingLong;
using lumora::kov::MeasurementDeviceCodeMap;

constexpr std::pair<int, int> kCodesAndDevices[] = {
    {-1, 1003}, {11, 103},  {13, 116}, {12, 104}, {9, 10},   {6, 163},   {7, 163},  {8, 1000},
    {3, 162},   {10, 1001}, {15, 302}, {16, 9},   {17, 301}, {18, 151},  {19, 152}, {20, 150},
    {21, 8},    {22, 153},  {23, 302}, {24, 154}, {25, 19},  {1004, 161}};

TEST(DeviceCodes, EveryCodeHasItsDevice) {
  const MeasurementDeviceCodeMap map;
  for (const auto& [code, device] : kCodesAndDevices) {
    EXPECT_EQ(map.codeToDevice(code), device) << code;
  }
}

TEST(DeviceCodes, EveryDeviceHasItsCodeAndLaterRowsWin) {
  const MeasurementDeviceCodeMap map;
  for (const auto& [code, device] : kCodesAndDevices) {
    const int expected = code == 6 ? 7 : code == 15 ? 23 : code;
    EXPECT_EQ(map.deviceToCode(device), expected) << device;
  }
}

TEST(DeviceCodes, TwoCodesMayShareADevice) {
  const MeasurementDeviceCodeMap map;
  EXPECT_EQ(map.codeToDevice(6), 163);
  EXPECT_EQ(map.codeToDevice(7), 163);
  EXPECT_EQ(map.deviceToCode(163), 7);
  EXPECT_EQ(map.codeToDevice(15), 302);
  EXPECT_EQ(map.codeToDevice(23), 302);
  EXPECT_EQ(map.deviceToCode(302), 23);
  EXPECT_EQ(map.deviceToCode(1003), -1);
  EXPECT_EQ(map.codeToDevice(1004), 161);
}

TEST(DeviceCodes, UnknownCodeIsReturnedUnchanged) {
  const MeasurementDeviceCodeMap map;
  for (const int code : {99, 0, -2, 163, std::numeric_limits<int>::min()}) {
    EXPECT_EQ(map.codeToDevice(code), code);
  }
}

TEST(DeviceCodes, UnknownDeviceGivesMinusTwo) {
  const MeasurementDeviceCodeMap map;
  for (const int device : {0, -1, 7, 1004, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(map.deviceToCode(device), -2) << device;
  }
}

TEST(LeadingLong, AcceptsWhiteSpaceSignAndTrailingText) {
  EXPECT_EQ(leadingLong("6500"), 6500);
  EXPECT_EQ(leadingLong(" \t\n\v\f\r+6500 K"), 6500);
  EXPECT_EQ(leadingLong("-12abc"), -12);
  EXPECT_EQ(leadingLong("010"), 10);
  EXPECT_EQ(leadingLong("0x10"), 0);
  EXPECT_EQ(leadingLong(std::string("12\0"
                                    "34",
                                    5)),
            12);
}

TEST(LeadingLong, ReachesBothEndsOfThirtyTwoBits) {
  EXPECT_EQ(leadingLong("2147483647"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(leadingLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(LeadingLong, BeyondThirtyTwoBitsIsOutOfRangeOnEverySystem) {
  for (const char* text : {"2147483648", "-2147483649", "9223372036854775807",
                           "9223372036854775808", "-99999999999999999999"}) {
    try {
      leadingLong(text);
      ADD_FAILURE() << text;
    } catch (const std::out_of_range& e) {
      EXPECT_STREQ(e.what(), "stol argument out of range");
    }
  }
}

TEST(LeadingLong, WithoutDigitsIsAnInvalidArgument) {
  for (const char* text : {"", " ", "+", "-", "--1", "x1", "+ 1"}) {
    try {
      leadingLong(text);
      ADD_FAILURE() << text;
    } catch (const std::invalid_argument& e) {
      EXPECT_STREQ(e.what(), "invalid stol argument");
    }
  }
}

TEST(LeadingLong, LeavesErrnoAlone) {
  errno = EINTR;
  leadingLong("1");
  EXPECT_THROW(leadingLong("9223372036854775808"), std::out_of_range);
  EXPECT_EQ(errno, EINTR);
}

TEST(ChromaticityOf, HandsTheTemperatureOverAndReadsXAndY) {
  kovtest::fakeChroma().x = 0.25;
  kovtest::fakeChroma().y = 0.75;
  const auto point = chromaticityOf(-123456);
  EXPECT_EQ(point.x, 0.25);
  EXPECT_EQ(point.y, 0.75);
  ASSERT_EQ(kovtest::fakeChroma().inputs.size(), 1U);
  EXPECT_EQ(kovtest::FakeChroma::temperatureOf(kovtest::fakeChroma().inputs[0]), -123456);
}

}  // namespace
