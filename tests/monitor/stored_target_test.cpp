// SPDX-License-Identifier: MIT
// The stored target of a look-up table, and the codes of display functions.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using pocketjson::Value;

class StoredTarget : public MonitorTest {
 protected:
  Value read(unsigned int lutNumber) { return handle().getCalibrationTargetData(lutNumber); }
};

TEST_F(StoredTarget, HasNineMembersOfTheseKinds) {
  world.addHistory(objects, 3)
      .target->setField("colorX", 0.31)
      .setField("colorY", 0.33)
      .setField("useMinimumLuminance", true)
      .setField("gammaValue", 2.2)
      .setField("gammaModelType", "Original");
  const Value target = read(3);
  ASSERT_EQ(target.type(), Value::Object);
  EXPECT_EQ(target.keys(),
            (std::vector<std::string>{"colorX", "colorY", "displayFunction", "exp", "isColorValue",
                                      "lamb", "lmax", "lmin", "useLminFlag"}));
  for (const char* number : {"lmax", "lmin", "colorX", "colorY", "lamb", "exp"}) {
    EXPECT_EQ(target[number].type(), Value::Double) << number;
  }
  EXPECT_EQ(target["lmax"].asDouble(), 250.5);
  EXPECT_EQ(target["lmin"].asDouble(), 0.5);
  EXPECT_EQ(target["colorX"].asDouble(), 0.31);
  EXPECT_EQ(target["colorY"].asDouble(), 0.33);
  EXPECT_EQ(target["lamb"].asDouble(), 0.25);
  EXPECT_EQ(target["exp"].asDouble(), 2.2);
  EXPECT_EQ(target["isColorValue"].type(), Value::Bool);
  EXPECT_FALSE(target["isColorValue"].asBool(true)) << "coordinates are there all the same";
  EXPECT_EQ(target["useLminFlag"].type(), Value::Bool);
  EXPECT_TRUE(target["useLminFlag"].asBool());
  EXPECT_EQ(target["displayFunction"].type(), Value::Int);
  EXPECT_EQ(target["displayFunction"].asInt(), 5);
}

TEST_F(StoredTarget, ReadsTheMembersInThisOrder) {
  world.addHistory(objects, 0).target->setField("gammaModelType", "Gamma Function");
  read(0);
  EXPECT_EQ(
      jvm.log.javaCalls(),
      (Lines{"monitor.extractCalibrationData()", "monitorHistory.size()", "monitorHistory.get(0)",
             "entry.getLutNumber()", "entry.getCalibrationTargetValues()",
             "entryTarget.getMaxLuminance()", "entryTarget.getMinLuminance()",
             "entryTarget.isColorCalibration()", "entryTarget.getColorX()",
             "entryTarget.getColorY()", "entryTarget.getAmbientLightValue()",
             "entryTarget.isUseMinimumLuminance()", "entryTarget.getGammaValue()",
             "entryTarget.getGammaModelType()", "entryTarget.getGammaValue()"}));
}

TEST_F(StoredTarget, FirstOfTwoEntriesWithTheSameNumberIsUsed) {
  world.addHistory(objects, 2, "first").target->setField("maxLuminance", 100.0);
  world.addHistory(objects, 2, "second").target->setField("maxLuminance", 200.0);
  EXPECT_EQ(read(2)["lmax"].asDouble(), 100.0);
  EXPECT_FALSE(jvm.log.contains("CallObjectMethodV monitorHistory.get(1)"));
}

// History records report one more than what is asked for here.
TEST_F(StoredTarget, NumberIsComparedAsItStandsAndNotPlusOne) {
  world.addHistory(objects, 4);
  const lumora::Monitor monitor = handle();
  EXPECT_EQ(monitor.getExtractCalibrationData().at(0).lutNumber, 5);
  EXPECT_EQ(monitor.getCalibrationTargetData(5).type(), Value::Null);
  EXPECT_EQ(monitor.getCalibrationTargetData(4).type(), Value::Object);
}

TEST_F(StoredTarget, NumbersAreComparedInThirtyTwoBits) {
  world.addHistory(objects, -1, "negative");
  world.addHistory(objects, 65536, "large");
  EXPECT_EQ(read(4294967295U).type(), Value::Object);
  EXPECT_EQ(read(65536).type(), Value::Object);
  EXPECT_EQ(read(0).type(), Value::Null);
  EXPECT_EQ(read(65535).type(), Value::Null);
}

TEST_F(StoredTarget, MonitorWithoutHistoryGivesNullForEveryNumber) {
  for (const unsigned int number : {0U, 1U, 7U, 4294967295U}) {
    EXPECT_EQ(read(number).type(), Value::Null) << number;
  }
}

TEST_F(StoredTarget, NullHistoryListGivesNull) {
  objects.monitor->setField("history", nullptr);
  EXPECT_EQ(read(0).type(), Value::Null);
}

TEST_F(StoredTarget, NoEntryOfThatNumberGivesNull) {
  world.addHistory(objects, 1);
  EXPECT_EQ(read(0).type(), Value::Null);
}

TEST_F(StoredTarget, NullTargetObjectIsANullPointerException) {
  world.addHistory(objects, 0).entry->setField("calibrationTargetValues", nullptr);
  EXPECT_EQ(javaExceptionOf([&] { read(0); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/CalibrationTargetValues."
            "getMaxLuminance()D called on null");
}

TEST_F(StoredTarget, JavaExceptionOfAGetterPropagates) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  jvm->script(entry.target, "getColorY", fakejvm::throws("java/io/IOException", "torn"));
  EXPECT_EQ(javaExceptionOf([&] { read(0); }), "java.io.IOException: torn");
}

class DisplayFunctionCode : public MonitorTest {
 protected:
  HistoryObjects entry = world.addHistory(objects, 0);
  int codeOf(const std::string& type, double gamma = 0.0) {
    entry.target->setField("gammaModelType", type).setField("gammaValue", gamma);
    const lumora::Monitor monitor = handle();
    const int stored = monitor.getCalibrationTargetData(0)["displayFunction"].asInt(-1);
    EXPECT_EQ(monitor.getExtractCalibrationData().at(0).target.displayFunction, stored)
        << "history and stored target speak of the same function";
    return stored;
  }
};

TEST_F(DisplayFunctionCode, IsThisForEachGammaModelType) {
  EXPECT_EQ(codeOf("CIE 1976"), 1);
  EXPECT_EQ(codeOf("CIE DIN 6174"), 0);
  EXPECT_EQ(codeOf("CRT"), 0);
  EXPECT_EQ(codeOf("Dicom 14"), 0);
  EXPECT_EQ(codeOf("Undefined"), 0);
  EXPECT_EQ(codeOf("Gamma Function", 1.0), 4);
  EXPECT_EQ(codeOf("Gamma Function", 2.2), 2);
  EXPECT_EQ(codeOf("Logarithmic Luminance Linear"), 3);
  EXPECT_EQ(codeOf("Original"), 5);
  EXPECT_EQ(codeOf("Userdefined"), 6);
  EXPECT_EQ(codeOf(""), 0);
  EXPECT_EQ(codeOf("Sigmoid"), 0);
}

TEST_F(DisplayFunctionCode, ComparesExactly) {
  EXPECT_EQ(codeOf("Original "), 0);
  EXPECT_EQ(codeOf("Origina"), 0);
  EXPECT_EQ(codeOf("original"), 0);
  EXPECT_EQ(codeOf("gamma function", 2.2), 0);
}

TEST_F(DisplayFunctionCode, Cie1976InLowerCaseIsZero) { EXPECT_EQ(codeOf("cie 1976"), 0); }

TEST_F(DisplayFunctionCode, GammaWithinAMillionthOfOneIsFour) {
  EXPECT_EQ(codeOf("Gamma Function", 1.0000005), 4);
  EXPECT_EQ(codeOf("Gamma Function", 0.9999995), 4);
}

TEST_F(DisplayFunctionCode, GammaFartherFromOneIsTwo) {
  EXPECT_EQ(codeOf("Gamma Function", 1.00001), 2);
  EXPECT_EQ(codeOf("Gamma Function", 0.99999), 2);
  EXPECT_EQ(codeOf("Gamma Function", -1.0), 2);
  EXPECT_EQ(codeOf("Gamma Function", std::numeric_limits<double>::quiet_NaN()), 2);
}

// Strictly smaller: a difference of 1e-6 itself is too large. 1 + 1e-6 and 1 - 1e-6 are not exact
// doubles; these are the nearest ones whose difference from 1 is not smaller than 1e-6.
TEST_F(DisplayFunctionCode, GammaToleranceIsStrict) {
  double gamma = 1.0 + 1e-6;
  while (gamma - 1.0 < 1e-6) gamma = std::nextafter(gamma, 2.0);
  EXPECT_EQ(codeOf("Gamma Function", gamma), 2);
  EXPECT_EQ(codeOf("Gamma Function", std::nextafter(gamma, 0.0)), 4);
}

TEST_F(DisplayFunctionCode, GammaValueIsAskedOfAGammaFunctionOnly) {
  jvm->script(entry.target, "getGammaValue", fakejvm::throws("java/lang/Error", "not asked"));
  entry.target->setField("gammaModelType", "CIE 1976");
  EXPECT_EQ(handle().getExtractCalibrationData().at(0).target.displayFunction, 1);
}

}  // namespace
