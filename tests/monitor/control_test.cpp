// SPDX-License-Identifier: MIT
// What the Java-backed control makes of the Java library's answers.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <thread>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using lumora::Monitor;

class MonitorControlKov : public MonitorTest {};

TEST_F(MonitorControlKov, NothingIsCached) {
  const Monitor monitor = handle();
  EXPECT_EQ(monitor.getModelName(), "L5-X240");
  objects.monitor->setField("model", "L5-X241");
  EXPECT_EQ(monitor.getModelName(), "L5-X241");
}

TEST_F(MonitorControlKov, TextsArriveAsTheirBytes) {
  const Monitor monitor = handle();
  objects.monitor->setField("model", "\xC3\xA4\xE6\x97\xA5")
      .setField("serialNumber", std::string("a\xC0\x80z"))
      .setField("connectionType", "");
  EXPECT_EQ(monitor.getModelName(), "\xC3\xA4\xE6\x97\xA5");
  EXPECT_EQ(monitor.getSerialNumber(), "a\xC0\x80z");
  EXPECT_EQ(monitor.getConnectionType(), "");
}

TEST_F(MonitorControlKov, NullTextsAreEmpty) {
  const Monitor monitor = handle();
  for (const char* field : {"model", "serialNumber", "connectionType", "colorType"}) {
    objects.monitor->setField(field, nullptr);
  }
  objects.edid->setField("modelName", nullptr).setField("serialNumber", nullptr);
  EXPECT_EQ(monitor.getModelName(), "");
  EXPECT_EQ(monitor.getSerialNumber(), "");
  EXPECT_EQ(monitor.getConnectionType(), "");
  EXPECT_EQ(monitor.getEdidModelName(), "");
  EXPECT_EQ(monitor.getEdidSerialNumber(), "00000000");
  EXPECT_EQ(monitor.getMonitorColorType(), OmCtrlPanelColor);
  EXPECT_EQ(monitor.getPackageName(), "noPackage");
}

std::string edidSerial(const MonitorObjects& objects, const Monitor& monitor, const char* text) {
  objects.edid->setField("serialNumber", text);
  return monitor.getEdidSerialNumber();
}

TEST_F(MonitorControlKov, EdidSerialOfThreeCharactersGetsFiveLeadingZeros) {
  EXPECT_EQ(edidSerial(objects, handle(), "abc"), "00000abc");
}

TEST_F(MonitorControlKov, EdidSerialOfTwelveCharactersIsUnchanged) {
  EXPECT_EQ(edidSerial(objects, handle(), "ABCDEFGHIJKL"), "ABCDEFGHIJKL");
}

TEST_F(MonitorControlKov, EdidSerialIsPaddedToEightCharacters) {
  const Monitor monitor = handle();
  EXPECT_EQ(edidSerial(objects, monitor, ""), "00000000");
  EXPECT_EQ(edidSerial(objects, monitor, "1234"), "00001234");
  EXPECT_EQ(edidSerial(objects, monitor, "1234567"), "01234567");
  EXPECT_EQ(edidSerial(objects, monitor, "12345678"), "12345678");
  EXPECT_EQ(edidSerial(objects, monitor, "123456789"), "123456789");
  EXPECT_EQ(edidSerial(objects, monitor, " 1 "), "00000 1 ");
}

TEST_F(MonitorControlKov, EdidYearIsTheReturnedInt) {
  const Monitor monitor = handle();
  EXPECT_EQ(monitor.getEdidProductYear(), 2019);
  objects.edid->setField("yearOfManufacture", std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(monitor.getEdidProductYear(), std::numeric_limits<std::int32_t>::min());
}

TEST_F(MonitorControlKov, NullEdidIsANullPointerException) {
  objects.monitor->setField("edidInformation", nullptr);
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.getEdidModelName(); }),
            "java.lang.NullPointerException: "
            "com/orva/kov/library/api/EdidInformation.getModelName()Ljava/lang/String; "
            "called on null");
}

TEST_F(MonitorControlKov, UsageTimeIsTheWorkingHoursAndZero) {
  const Monitor monitor = handle();
  objects.monitor->setField("workingHours", -7);
  EXPECT_EQ(monitor.getUsageTime().workingHours, -7);
  EXPECT_EQ(monitor.getUsageTime().reserved, 0);
}

TEST_F(MonitorControlKov, ColorTypeIsMonochromeForExactlyThisText) {
  const Monitor monitor = handle();
  const auto typeOf = [&](const char* text) {
    objects.monitor->setField("colorType", text);
    return static_cast<int>(monitor.getMonitorColorType());
  };
  EXPECT_EQ(typeOf("Monochrome"), 0);
  EXPECT_EQ(typeOf("Color"), 1);
  EXPECT_EQ(typeOf("Monochrome "), 1);
  EXPECT_EQ(typeOf("Monochrom"), 1);
  EXPECT_EQ(typeOf("MONOCHROME"), 1);
  EXPECT_EQ(typeOf(""), 1);
}

TEST_F(MonitorControlKov, ColorTypeInLowerCaseIsColor) {
  objects.monitor->setField("colorType", "monochrome");
  EXPECT_EQ(handle().getMonitorColorType(), OmCtrlPanelColor);
}

TEST_F(MonitorControlKov, KeyLockStateIsTenWhenLockedAndZeroOtherwise) {
  const Monitor monitor = handle();
  EXPECT_EQ(static_cast<int>(monitor.getKeyLockState()), 0);
  objects.osd->setField("locked", true);
  EXPECT_EQ(static_cast<int>(monitor.getKeyLockState()), 10);
}

TEST_F(MonitorControlKov, KeyLockSupportIsTheReturnedBoolean) {
  const Monitor monitor = handle();
  EXPECT_TRUE(monitor.isKeyLockSupported());
  objects.osd->setField("lockSupported", false);
  EXPECT_FALSE(monitor.isKeyLockSupported());
}

TEST_F(MonitorControlKov, SetKeyLockStateOneUnlocks) {
  objects.osd->setField("locked", true);
  handle().setKeyLockState(static_cast<OmCtrlKeyLockState>(1));
  EXPECT_FALSE(objects.osd->field("locked").asBool());
}

TEST_F(MonitorControlKov, SetKeyLockStateWithAnyValueOtherThanTenUnlocks) {
  const Monitor monitor = handle();
  for (const int state : {0, 1, 2, 9, 11, -10, 266, std::numeric_limits<int>::max()}) {
    objects.osd->setField("locked", true);
    monitor.setKeyLockState(static_cast<OmCtrlKeyLockState>(state));
    EXPECT_FALSE(objects.osd->field("locked").asBool()) << state;
  }
  monitor.setKeyLockState(static_cast<OmCtrlKeyLockState>(10));
  EXPECT_TRUE(objects.osd->field("locked").asBool());
}

// One speaks of the library's number, the other of the position in its list.
TEST_F(MonitorControlKov, CalModeValueReadsTheNumberAndSetsThePosition) {
  objects.luts[0]->setField("index", 7);
  objects.luts[1]->setField("index", 3);
  const Monitor monitor = handle();
  EXPECT_EQ(monitor.getCalModeValue(), 7U);
  monitor.setCalModeValue(1);
  EXPECT_EQ(monitor.getCalModeValue(), 3U);
  EXPECT_EQ(javaExceptionOf([&] { monitor.setCalModeValue(3); }),
            "java.lang.IndexOutOfBoundsException: Index 3 out of bounds for length 2");
}

TEST_F(MonitorControlKov, CalModeValueIsUnsigned) {
  objects.luts[0]->setField("index", -1);
  EXPECT_EQ(handle().getCalModeValue(), 4294967295U);
}

TEST_F(MonitorControlKov, SetCalModeValueBeyondTheIntRangeAsksForANegativePosition) {
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.setCalModeValue(4294967295U); }),
            "java.lang.IndexOutOfBoundsException: Index -1 out of bounds for length 2");
}

TEST_F(MonitorControlKov, NullLookUpTableListIsANullPointerException) {
  objects.monitor->setField("lookUpTables", nullptr);
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.setCalModeValue(0); }),
            "java.lang.NullPointerException: java/util/List.get(I)Ljava/lang/Object; "
            "called on null");
}

TEST_F(MonitorControlKov, NullLookUpTableIsANullPointerException) {
  objects.monitor->setField("activeLut", nullptr);
  objects.monitor->setField("lookUpTables", fakejvm::makeList({nullptr}));
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.getCalModeValue(); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/LookUpTable.getIndex()I "
            "called on null");
  EXPECT_EQ(javaExceptionOf([&] { monitor.setCalModeValue(0); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/LookUpTable.activate()V "
            "called on null");
}

TEST_F(MonitorControlKov, NullOsdIsANullPointerException) {
  objects.monitor->setField("osd", nullptr);
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.setKeyLockState(OmCtrlKeyLockLocked); }),
            "java.lang.NullPointerException: com/orva/kov/library/api/Osd.setLocked(Z)V "
            "called on null");
}

TEST_F(MonitorControlKov, GammaModelTagIsTakenByPositionInTheHistory) {
  world.addHistory(objects, 9, "first");
  world.addHistory(objects, 8, "second");
  const Monitor monitor = handle();
  EXPECT_EQ(monitor.getGammaModelTag(0), "tag-first");
  EXPECT_EQ(monitor.getGammaModelTag(1), "tag-second");
}

TEST_F(MonitorControlKov, GammaModelTagBeyondTheHistoryIsTheJavaLibrarysOwnException) {
  world.addHistory(objects, 0);
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.getGammaModelTag(1); }),
            "java.lang.IndexOutOfBoundsException: Index 1 out of bounds for length 1");
  EXPECT_EQ(javaExceptionOf([&] { monitor.getGammaModelTag(4294967295U); }),
            "java.lang.IndexOutOfBoundsException: Index -1 out of bounds for length 1");
}

TEST_F(MonitorControlKov, GammaModelTagOfANullHistoryIsANullPointerException) {
  objects.monitor->setField("history", nullptr);
  const Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.getGammaModelTag(0); }),
            "java.lang.NullPointerException: java/util/List.get(I)Ljava/lang/Object; "
            "called on null");
}

TEST_F(MonitorControlKov, GammaModelTagThatIsNullIsEmpty) {
  world.addHistory(objects, 0).target->setField("gammaModelTag", nullptr);
  EXPECT_EQ(handle().getGammaModelTag(0), "");
}

TEST_F(MonitorControlKov, AbortCalibrationReachesTheJavaMonitor) {
  handle().abortCalibration();
  EXPECT_EQ(world.abortCount(), 1);
}

TEST_F(MonitorControlKov, PerformCalibrationReturnsWhenTheJavaCallReturns) {
  bool inside = false;
  jvm->script(kMonitorClass, "performCalibration", [&](fakejvm::Call& call) -> fakejvm::Value {
    inside = true;
    EXPECT_EQ(call.args[4].asText(), "text");
    EXPECT_EQ(call.args[5].asLong(), std::numeric_limits<std::int64_t>::min());
    return {};
  });
  handle().performCalibration(nullptr, false, 0, false, "text",
                              std::numeric_limits<long long>::min());
  EXPECT_TRUE(inside);
}

TEST_F(MonitorControlKov, MissingMemberOfTheJarIsNamed) {
  // On a thread of its own, whose bindings are made while the member is missing.
  jvm->missingMember(kMonitorClass, "getModel", "()Ljava/lang/String;");
  std::string thrown;
  std::thread([&] {
    const Monitor monitor = handle();
    EXPECT_EQ(monitor.getSerialNumber(), "SN0001");
    thrown = javaExceptionOf([&] { monitor.getModelName(); });
  }).join();
  EXPECT_EQ(thrown,
            "java.lang.NoSuchMethodError: "
            "com/orva/kov/library/api/Monitor.getModel()Ljava/lang/String;");
}

}  // namespace
