// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "tests/real/support.h"

namespace {

using lumora::Monitor;
using lumora::kov::KovMonitorManager;
using realtest::Calibration;
using realtest::Instrument;
using realtest::Workstation;

TEST(Calibration, RunsFromTheTargetToTheData) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK) << run.calibrator.getErrorMsg();
  ASSERT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
  EXPECT_FALSE(run.calibrator.isCanceled());

  const auto& fractions = run.instrument.fractions;
  ASSERT_FALSE(fractions.empty());
  EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
  EXPECT_EQ(fractions.back(), 1.0);
  EXPECT_EQ(run.instrument.events, std::vector<std::string>{"FinishCalibration"});
  EXPECT_GE(run.instrument.measurements.size(), 52U + 18U);

  const pocketjson::Value data = run.calibrator.getCalibrationData();
  ASSERT_EQ(data.type(), pocketjson::Value::Object);
  EXPECT_GT(data["photoSensorAD"].asInt(), 0);
  EXPECT_EQ(data["calibrationTarget"].type(), pocketjson::Value::Null);  // the target gave one

  const auto entry = monitor.getExtractCalibrationData().at(0);
  EXPECT_EQ(entry.lutNumber, 1);
  EXPECT_DOUBLE_EQ(entry.target.maxLuminance, 250.0);
  EXPECT_EQ(entry.target.deviceId, 163);
  EXPECT_EQ(entry.target.deviceSerialNumber, "METER-17");
  EXPECT_EQ(entry.target.displayFunction, 0);
  EXPECT_EQ(monitor.getCalibrationTargetData(0)["lmax"].asDouble(), 250.0);
}

// The last 18 patches are the verification, from black to white: what is left to see afterwards.
TEST(Calibration, TheMonitorShowsTheTarget) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  ASSERT_EQ(run.calibrator.execute(), OM_OK);
  const auto& all = run.instrument.measurements;
  ASSERT_GE(all.size(), 18U);
  const auto verified = std::vector(all.end() - 18, all.end());
  for (std::size_t i = 0; i < verified.size(); ++i) {
    EXPECT_NEAR(verified[i].red, static_cast<double>(i) / 17.0, 1e-9);
    if (i > 0) {
      EXPECT_GT(verified[i].luminance, verified[i - 1].luminance);
    }
  }
  EXPECT_NEAR(verified.front().luminance, 0.5, 0.02);
  EXPECT_NEAR(verified.back().luminance, 250.0, 1.0);
}

TEST(Calibration, AMeasuredMinimumIsReported) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  pocketjson::Value target = realtest::dicomTarget();
  target["IsUsedMeasurementLmin"] = true;
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, target), OM_OK);
  ASSERT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
  EXPECT_GT(run.calibrator.getCalibrationData()["calibrationTarget"]["lmin"].asDouble(), 0.1);
}

TEST(Calibration, AnotherTableIsCalibratedWithNothingBeforeIt) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  Calibration run(realtest::kColour, 2);
  pocketjson::Value target = realtest::dicomTarget();
  target["DisplayFunctionType"] = "EXP";
  target["ExpValue"] = "2.2";
  target["ColorTemperatureType"] = "K6500";
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, target), OM_OK) << run.calibrator.getErrorMsg();
  ASSERT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
  EXPECT_EQ(run.calibrator.getCalibrationData()["photoSensorAD"].type(), pocketjson::Value::Int);
  const pocketjson::Value stored = monitor.getCalibrationTargetData(2);
  EXPECT_EQ(stored["displayFunction"].asInt(), 2);
  EXPECT_DOUBLE_EQ(stored["exp"].asDouble(), 2.2);
  EXPECT_NEAR(stored["colorX"].asDouble(), 0.312779, 1e-6);
  EXPECT_NEAR(stored["colorY"].asDouble(), 0.329183, 1e-6);
}

TEST(Calibration, RestoreActivatesTheTableAgain) {
  const Workstation workstation;
  const Monitor monitor = Workstation::findColourMonitor();
  const Calibration run(realtest::kColour, 1);
  monitor.setCalModeValue(3);
  Calibration other(realtest::kColour, 1);
  EXPECT_EQ(other.calibrator.restore(), OM_OK);
  EXPECT_EQ(monitor.getCalModeValue(), 1U);
}

TEST(Calibration, AMonitorWithoutHistoryFailsAtItsTag) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kWithoutHistory);
  EXPECT_EQ(setTarget(run, realtest::dicomTarget()), OM_ERR_JAVA);
  EXPECT_FALSE(run.calibrator.getErrorMsg().empty());
}

TEST(Calibration, AFailedTransmissionIsACommunicationError) {
  const Workstation workstation;
  workstation.order(
      "fault.1.call = Calibration.measure\nfault.1.nth = 5\nfault.1.action = throw\n"
      "fault.1.class = java.io.IOException\nfault.1.message = port 3: Error sending data (2)\n");
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  EXPECT_EQ(run.calibrator.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(run.calibrator.getErrorMsg(), "port 3: Error sending data (2)");
}

TEST(Calibration, ADelegateThatThrowsEndsTheRunWithItsText) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  run.instrument.onPatch = [](int patch) {
    if (patch == 3) throw std::runtime_error("the window was closed");
  };
  EXPECT_EQ(run.calibrator.execute(), OM_ERR_JAVA);
  EXPECT_EQ(run.calibrator.getErrorMsg(), "the window was closed");
  run.instrument.onPatch = nullptr;
  EXPECT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
}

TEST(Calibration, WithoutCallbacksTheLibraryCannotMeasure) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  ASSERT_EQ(setTarget(run, realtest::dicomTarget()), OM_OK);
  EXPECT_EQ(run.calibrator.execute(), OM_ERR_JAVA);  // UnsatisfiedLinkError
  EXPECT_FALSE(run.calibrator.getErrorMsg().empty());
}

TEST(Calibration, NoDataBeforeACalibration) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kColour);
  const pocketjson::Value data = run.calibrator.getCalibrationData();
  EXPECT_EQ(data.type(), pocketjson::Value::String);
  EXPECT_EQ(data.asString("x"), "");
  EXPECT_FALSE(run.calibrator.getErrorMsg().empty());
}

TEST(Calibration, AnUnknownMonitorIsNoJavaFailure) {
  const Workstation workstation;
  KovMonitorManager::get().find();
  Instrument instrument(realtest::kColour);
  lumora::kov::KovCalibrator calibrator("nobody", "0", 0, instrument.device(), "", "", &instrument);
  EXPECT_EQ(calibrator.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(calibrator.cancel(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(calibrator.restore(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(calibrator.getErrorMsg(), "");
}

TEST(Calibration, AMonochromePanelIsCalibratedToo) {
  const Workstation workstation;
  Workstation::findColourMonitor();
  Calibration run(realtest::kMonochrome);
  pocketjson::Value target = realtest::dicomTarget();
  target["LmaxValue"] = 500.0;
  target["LminValue"] = 1.0;
  ASSERT_EQ(run.calibrator.registerCallback(), OM_OK);
  ASSERT_EQ(setTarget(run, target), OM_OK);
  ASSERT_EQ(run.calibrator.execute(), OM_OK) << run.calibrator.getErrorMsg();
  EXPECT_NEAR(run.instrument.measurements.back().luminance, 500.0, 2.0);
}

}  // namespace
