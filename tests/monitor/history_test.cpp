// SPDX-License-Identifier: MIT
// History records: where each field comes from, and how wide it is.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrationHisInfo;

class History : public MonitorTest {
 protected:
  std::vector<KovCalibrationHisInfo> read() { return handle().getExtractCalibrationData(); }
  // Of the one entry.
  KovCalibrationHisInfo record() { return read().at(0); }
};

TEST_F(History, ReadsAnEntryInThisOrder) {
  world.addHistory(objects, 3);
  read();
  EXPECT_EQ(jvm.log.javaCalls(), (Lines{"monitor.extractCalibrationData()",
                                        "monitorHistory.size()",
                                        "monitorHistory.get(0)",
                                        "entry.getLutNumber()",
                                        "entry.getVerticalResolution()",
                                        "Integer#1.intValue()",
                                        "entry.getHorizontalResolution()",
                                        "Integer#2.intValue()",
                                        "entry.getWorkingHours()",
                                        "Integer#3.intValue()",
                                        "entry.getPerformer()",
                                        "entry.getComputerName()",
                                        "entry.getColorDepth()",
                                        "Integer#4.intValue()",
                                        "entry.getExecuteDate()",
                                        "entry.getHorizontalFrequency()",
                                        "Double#1.doubleValue()",
                                        "entry.getVerticalFrequency()",
                                        "Integer#5.intValue()",
                                        "entry.getCalibrationTargetValues()",
                                        "entry.getMeasurementDeviceType()",
                                        "entryDeviceType.getName()",
                                        "entryTarget.getMaxLuminance()",
                                        "entryTarget.getMinLuminance()",
                                        "entryTarget.isColorCalibration()",
                                        "entryTarget.getGammaModelType()",
                                        "entryTarget.getAmbientLightValue()",
                                        "entry.getBacklightSensorValue()",
                                        "Integer#6.intValue()",
                                        "entry.getMeasurementDeviceType()",
                                        "entryDeviceType.getId()",
                                        "entry.getMeasurementDeviceSerialNumber()"}));
}

TEST_F(History, ReadsColourAndGammaOfATargetThatHasThem) {
  world.addHistory(objects, 3)
      .target->setField("colorCalibration", true)
      .setField("gammaModelType", "Gamma Function");
  read();
  const Lines calls = jvm.log.javaCalls();
  const auto flag = std::find(calls.begin(), calls.end(), "entryTarget.isColorCalibration()");
  ASSERT_GE(calls.end() - flag, 7);
  EXPECT_EQ(Lines(flag, flag + 7),
            (Lines{"entryTarget.isColorCalibration()", "entryTarget.getColorX()",
                   "entryTarget.getColorY()", "entryTarget.getGammaModelType()",
                   "entryTarget.getGammaValue()", "entryTarget.getGammaValue()",
                   "entryTarget.getAmbientLightValue()"}));
}

// A boxed number: fetched, held, unboxed, released; nothing is deleted locally.
TEST_F(History, UnboxesThroughAHeldReference) {
  world.addHistory(objects, 3);
  read();
  const Lines all = jvm.log.lines();
  const auto at =
      static_cast<std::size_t>(jvm.log.indexOf("CallObjectMethodV entry.getVerticalResolution()"));
  ASSERT_LT(at + 7, all.size());
  EXPECT_EQ(Lines(all.begin() + static_cast<long>(at) - 1, all.begin() + static_cast<long>(at) + 7),
            guardedObject("entry.getVerticalResolution()", "Integer#1") +
                guarded("CallIntMethodV Integer#1.intValue()") + released("Integer#1"));
}

TEST_F(History, FillsEveryField) {
  world.addHistory(objects, 3);
  const KovCalibrationHisInfo info = record();
  EXPECT_EQ(info.lutNumber, 4);
  EXPECT_EQ(info.target.deviceKind, 1);
  EXPECT_EQ(info.target.calibrationKind, "STANDARD");
  EXPECT_EQ(info.target.maxLuminance, 250.5);
  EXPECT_EQ(info.target.minLuminance, 0.5);
  EXPECT_FALSE(info.target.reservedFlag);
  EXPECT_EQ(info.target.colorMode, "OFF");
  EXPECT_EQ(info.target.colorX, 0.0);
  EXPECT_EQ(info.target.colorY, 0.0);
  EXPECT_EQ(info.target.displayFunction, 0);
  EXPECT_EQ(info.target.gammaValue, 0.0);
  EXPECT_TRUE(info.target.validFlag);
  EXPECT_EQ(info.target.ambientLight, 0.25);
  EXPECT_EQ(info.target.deviceId, 163);
  EXPECT_EQ(info.target.deviceSerialNumber, "DEV-77");
  EXPECT_EQ(info.backlightSensorValue, 812);
  EXPECT_EQ(info.run.executeDate, "2024-05-06 07:08:09");
  EXPECT_EQ(info.run.performer, "Performer");
  EXPECT_EQ(info.run.workingHours, 1234);
  EXPECT_EQ(info.run.computerName, "HOST-1");
  EXPECT_EQ(info.horizontalResolution, 1536);
  EXPECT_EQ(info.verticalResolution, 2048);
  EXPECT_EQ(info.horizontalFrequency, 75500);
  EXPECT_EQ(info.verticalFrequency, 60);
  EXPECT_EQ(info.colorDepth, 30);
}

TEST_F(History, MonitorWithoutHistoryGivesAnEmptyVector) { EXPECT_TRUE(read().empty()); }

TEST_F(History, NullHistoryListGivesAnEmptyVector) {
  objects.monitor->setField("history", nullptr);
  EXPECT_TRUE(read().empty());
  EXPECT_EQ(jvm.log.javaCalls(), Lines{"monitor.extractCalibrationData()"});
}

TEST_F(History, KeepsTheOrderOfTheJavaList) {
  world.addHistory(objects, 5, "a");
  world.addHistory(objects, 1, "b");
  world.addHistory(objects, 3, "c");
  const std::vector<KovCalibrationHisInfo> records = read();
  ASSERT_EQ(records.size(), 3U);
  EXPECT_EQ(records[0].lutNumber, 6);
  EXPECT_EQ(records[1].lutNumber, 2);
  EXPECT_EQ(records[2].lutNumber, 4);
}

TEST_F(History, LutNumberZeroIsReportedAsOne) {
  world.addHistory(objects, 0);
  EXPECT_EQ(record().lutNumber, 1);
}

TEST_F(History, LutNumberPlusOneIsComputedInSixteenBits) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  const auto reported = [&](int number) {
    entry.entry->setField("lutNumber", number);
    return record().lutNumber;
  };
  EXPECT_EQ(reported(-1), 0);
  EXPECT_EQ(reported(65535), 0);
  EXPECT_EQ(reported(65536), 1);
  EXPECT_EQ(reported(std::numeric_limits<int>::max()), 0);
  EXPECT_EQ(reported(65534), 65535);
}

TEST_F(History, SixteenBitFieldsTruncate) {
  world.addHistory(objects, 0)
      .entry->setField("verticalResolution", 65536 + 1)
      .setField("horizontalResolution", -1)
      .setField("colorDepth", 0x12340020)
      .setField("verticalFrequency", 65535)
      .setField("backlightSensorValue", -2)
      .setField("workingHours", 70000);
  const KovCalibrationHisInfo info = record();
  EXPECT_EQ(info.verticalResolution, 1);
  EXPECT_EQ(info.horizontalResolution, 65535);
  EXPECT_EQ(info.colorDepth, 32);
  EXPECT_EQ(info.verticalFrequency, 65535);
  EXPECT_EQ(info.backlightSensorValue, 65534);
  EXPECT_EQ(info.run.workingHours, 70000) << "this one has 32 bits";
}

TEST_F(History, NullBoxedValuesLeaveZero) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  for (const char* field :
       {"verticalResolution", "horizontalResolution", "workingHours", "colorDepth",
        "horizontalFrequency", "verticalFrequency", "backlightSensorValue"}) {
    entry.entry->setField(field, nullptr);
  }
  const KovCalibrationHisInfo info = record();
  EXPECT_EQ(info.verticalResolution, 0);
  EXPECT_EQ(info.horizontalResolution, 0);
  EXPECT_EQ(info.run.workingHours, 0);
  EXPECT_EQ(info.colorDepth, 0);
  EXPECT_EQ(info.horizontalFrequency, 0);
  EXPECT_EQ(info.verticalFrequency, 0);
  EXPECT_EQ(info.backlightSensorValue, 0);
  for (const std::string& call : jvm.log.javaCalls()) {
    EXPECT_EQ(call.find(".intValue"), std::string::npos) << "an absent value was unboxed";
    EXPECT_EQ(call.find(".doubleValue"), std::string::npos) << "an absent value was unboxed";
  }
}

TEST_F(History, NullTextsAreEmpty) {
  const HistoryObjects entry = world.addHistory(objects, 0);
  for (const char* field :
       {"performer", "computerName", "executeDate", "measurementDeviceSerialNumber"}) {
    entry.entry->setField(field, nullptr);
  }
  entry.deviceType->setField("name", nullptr);
  entry.target->setField("gammaModelType", nullptr);
  const KovCalibrationHisInfo info = record();
  EXPECT_EQ(info.run.performer, "");
  EXPECT_EQ(info.run.computerName, "");
  EXPECT_EQ(info.run.executeDate, "");
  EXPECT_EQ(info.target.deviceSerialNumber, "");
  EXPECT_EQ(info.target.deviceKind, 1);
  EXPECT_EQ(info.target.displayFunction, 0);
}

TEST_F(History, NullTargetObjectIsANullPointerException) {
  world.addHistory(objects, 0).entry->setField("calibrationTargetValues", nullptr);
  EXPECT_EQ(javaExceptionOf([&] { read(); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/CalibrationTargetValues."
            "getMaxLuminance()D called on null");
}

TEST_F(History, NullDeviceTypeIsANullPointerException) {
  world.addHistory(objects, 0).entry->setField("measurementDeviceType", nullptr);
  EXPECT_EQ(javaExceptionOf([&] { read(); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/MeasurementDeviceType."
            "getName()Ljava/lang/String; called on null");
}

TEST_F(History, NullEntryIsANullPointerException) {
  objects.history->addElement(nullptr);
  EXPECT_EQ(javaExceptionOf([&] { read(); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/ExtractedCalibrationData."
            "getLutNumber()I called on null");
}

TEST_F(History, SizeIsAskedOnce) {
  world.addHistory(objects, 0, "a");
  world.addHistory(objects, 1, "b");
  read();
  const Lines calls = jvm.log.javaCalls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "monitorHistory.size()"), 1);
}

TEST_F(History, LongHistoryLeavesNoReferenceBehind) {
  for (int i = 0; i < 500; ++i) world.addHistory(objects, i, "entry" + std::to_string(i));
  const lumora::Monitor monitor = handle();
  const int before = jvm->localRefs();
  EXPECT_EQ(monitor.getExtractCalibrationData().size(), 500U);
  EXPECT_EQ(jvm->localRefs(), before);
  EXPECT_EQ(jvm->liveGlobalRefs(), 1) << "the handle's own";
}

}  // namespace
