// SPDX-License-Identifier: MIT
// The exact JNI calls of every operation of the Java-backed control.
#include <gtest/gtest.h>

#include "tests/monitor/monitor_fixture.h"

namespace {

using namespace kovtest;
using lumora::Monitor;

class ControlSequence : public MonitorTest {};

TEST_F(ControlSequence, GetModelName) {
  const Monitor monitor = handle();
  monitor.getModelName();
  EXPECT_EQ(jvm.log, inFrame(guardedText("monitor.getModel()", "L5-X240")));
}

TEST_F(ControlSequence, GetSerialNumber) {
  const Monitor monitor = handle();
  monitor.getSerialNumber();
  EXPECT_EQ(jvm.log, inFrame(guardedText("monitor.getSerialNumber()", "SN0001")));
}

TEST_F(ControlSequence, GetPackageName) {
  const Monitor monitor = handle();
  monitor.getPackageName();
  EXPECT_EQ(jvm.log, inFrame(guardedText("monitor.getModel()", "L5-X240")));
}

TEST_F(ControlSequence, GetEdidModelName) {
  const Monitor monitor = handle();
  monitor.getEdidModelName();
  EXPECT_EQ(jvm.log,
            inFrame(guardedObject("monitor.getEdidInformation()", "monitorEdid") +
                    guardedText("monitorEdid.getModelName()", "L5X240") + released("monitorEdid")));
}

TEST_F(ControlSequence, GetEdidSerialNumber) {
  const Monitor monitor = handle();
  monitor.getEdidSerialNumber();
  EXPECT_EQ(jvm.log, inFrame(guardedObject("monitor.getEdidInformation()", "monitorEdid") +
                             guardedText("monitorEdid.getSerialNumber()", "1234") +
                             released("monitorEdid")));
}

TEST_F(ControlSequence, GetEdidProductYear) {
  const Monitor monitor = handle();
  monitor.getEdidProductYear();
  EXPECT_EQ(jvm.log, inFrame(guardedObject("monitor.getEdidInformation()", "monitorEdid") +
                             guarded("CallIntMethodV monitorEdid.getYearOfManufacture()") +
                             released("monitorEdid")));
}

TEST_F(ControlSequence, GetConnectionType) {
  const Monitor monitor = handle();
  monitor.getConnectionType();
  EXPECT_EQ(jvm.log, inFrame(guardedText("monitor.getConnectionType()", "USB")));
}

TEST_F(ControlSequence, GetUsageTime) {
  const Monitor monitor = handle();
  monitor.getUsageTime();
  EXPECT_EQ(jvm.log, inFrame(guarded("CallIntMethodV monitor.getWorkingHours()")));
}

TEST_F(ControlSequence, GetCalModeValue) {
  const Monitor monitor = handle();
  monitor.getCalModeValue();
  EXPECT_EQ(jvm.log,
            inFrame(guardedObject("monitor.getActiveLut()", "monitorLut0") +
                    guarded("CallIntMethodV monitorLut0.getIndex()") + released("monitorLut0")));
}

TEST_F(ControlSequence, SetCalModeValue) {
  const Monitor monitor = handle();
  monitor.setCalModeValue(1);
  EXPECT_EQ(jvm.log, inFrame(guardedObject("monitor.getLookUpTables()", "monitorLuts") +
                             guardedObject("monitorLuts.get(1)", "monitorLut1") +
                             guarded("CallVoidMethodV monitorLut1.activate()") +
                             released("monitorLut1") + released("monitorLuts")));
}

TEST_F(ControlSequence, GetMonitorColorType) {
  const Monitor monitor = handle();
  monitor.getMonitorColorType();
  EXPECT_EQ(jvm.log, inFrame(guardedText("monitor.getColorType()", "Color")));
}

TEST_F(ControlSequence, IsKeyLockSupported) {
  const Monitor monitor = handle();
  monitor.isKeyLockSupported();
  EXPECT_EQ(jvm.log, inFrame(guardedObject("monitor.getOsd()", "monitorOsd") +
                             guarded("CallBooleanMethodV monitorOsd.isLockSupported()") +
                             released("monitorOsd")));
}

TEST_F(ControlSequence, GetKeyLockState) {
  const Monitor monitor = handle();
  monitor.getKeyLockState();
  EXPECT_EQ(jvm.log,
            inFrame(guardedObject("monitor.getOsd()", "monitorOsd") +
                    guarded("CallBooleanMethodV monitorOsd.isLocked()") + released("monitorOsd")));
}

TEST_F(ControlSequence, SetKeyLockState) {
  const Monitor monitor = handle();
  monitor.setKeyLockState(OmCtrlKeyLockLocked);
  EXPECT_EQ(jvm.log,
            inFrame(guardedObject("monitor.getOsd()", "monitorOsd") +
                    guarded("CallVoidMethodV monitorOsd.setLocked(1)") + released("monitorOsd")));
}

TEST_F(ControlSequence, GetGammaModelTag) {
  world.addHistory(objects, 0);
  const Monitor monitor = handle();
  monitor.getGammaModelTag(0);
  EXPECT_EQ(jvm.log,
            inFrame(guardedObject("monitor.extractCalibrationData()", "monitorHistory") +
                    guardedObject("monitorHistory.get(0)", "entry") +
                    guardedObject("entry.getCalibrationTargetValues()", "entryTarget") +
                    guardedText("entryTarget.getGammaModelTag()", "tag-entry") +
                    released("entryTarget") + released("entry") + released("monitorHistory")));
}

TEST_F(ControlSequence, AbortCalibration) {
  const Monitor monitor = handle();
  monitor.abortCalibration();
  EXPECT_EQ(jvm.log, inFrame(guarded("CallVoidMethodV monitor.abortCalibration()")));
}

// The list goes over as it is; the text becomes a Java text before the guard clears.
TEST_F(ControlSequence, PerformCalibration) {
  jvm->script(kMonitorClass, "performCalibration", fakejvm::nothing());
  jvm->object("targets", "java/util/ArrayList");
  const Monitor monitor = handle();
  monitor.performCalibration(jvm.local("targets"), true, -3, false, "M\xC3\xB6", 1LL << 40);
  EXPECT_EQ(
      jvm.log,
      inFrame(Lines{"NewStringUTF \"M\xC3\xB6\""} +
              guarded("CallVoidMethodV monitor.performCalibration(targets,1,-3,0,\"M\xC3\xB6\""
                      ",1099511627776)")));
}

TEST_F(ControlSequence, PerformCalibrationPassesANullListOn) {
  jvm->script(kMonitorClass, "performCalibration", fakejvm::nothing());
  const Monitor monitor = handle();
  monitor.performCalibration(nullptr, false, 0, true, "", -1);
  EXPECT_EQ(jvm.log.javaCalls(), Lines{"monitor.performCalibration(null,0,0,1,\"\",-1)"});
}

TEST_F(ControlSequence, GetCalibrationTargetData) {
  world.addHistory(objects, 4, "other");
  world.addHistory(objects, 5);
  const Monitor monitor = handle();
  monitor.getCalibrationTargetData(5);
  const auto number = [](const std::string& getter) {
    return guarded("CallDoubleMethodV entryTarget." + getter + "()");
  };
  const auto flag = [](const std::string& getter) {
    return guarded("CallBooleanMethodV entryTarget." + getter + "()");
  };
  const Lines skipped = inFrame(guardedObject("monitorHistory.get(0)", "other") +
                                guarded("CallIntMethodV other.getLutNumber()") + released("other"));
  const Lines taken =
      inFrame(guardedObject("monitorHistory.get(1)", "entry") +
              guarded("CallIntMethodV entry.getLutNumber()") +
              guardedObject("entry.getCalibrationTargetValues()", "entryTarget") +
              number("getMaxLuminance") + number("getMinLuminance") + flag("isColorCalibration") +
              number("getColorX") + number("getColorY") + number("getAmbientLightValue") +
              flag("isUseMinimumLuminance") + number("getGammaValue") +
              guardedText("entryTarget.getGammaModelType()", "Dicom 14") + released("entryTarget") +
              released("entry"));
  EXPECT_EQ(jvm.log, inFrame(guardedObject("monitor.extractCalibrationData()", "monitorHistory") +
                             guarded("CallIntMethodV monitorHistory.size()") + skipped + taken +
                             released("monitorHistory")));
}

}  // namespace
