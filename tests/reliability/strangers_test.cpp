// SPDX-License-Identifier: MIT
// A plug-in that calls back as it should not: from other threads, after the end, with null.
#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "tests/calibration/calibrator_fixture.h"
#include "tests/support/kov_beans.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;

class CarelessPlugin : public CalibratorTest {
 protected:
  // Runs on a thread that Java itself attached; the library has never seen it.
  void onAThreadOfJava(const std::function<void(Natives&)>& calls) {
    std::thread([&] {
      jvm->attachThread();
      Natives natives(jvm.runtime);
      calls(natives);
      EXPECT_EQ(jvm->pendingException(), nullptr);
      jvm->detachThread();
    }).join();
  }
};

TEST_F(CarelessPlugin, CallingBackOnAnotherThreadReachesTheDelegateThere) {
  KovCalibrator made = calibrator();
  const std::int64_t handle = addressOf(made);
  std::thread::id seen;
  delegate.onShow = [&](auto&) { seen = std::this_thread::get_id(); };
  world.onCalibrate([&](CalibrationRun&) {
    onAThreadOfJava([&](Natives& natives) {
      natives.drawTestpattern(255, 255, 255, handle);
      EXPECT_EQ(natives.measureLuminance(handle)->at(0), 120.5);
      EXPECT_EQ(natives.getMeasurementSerialNumber(handle), "METER-01");
      EXPECT_EQ(natives.getMeasurementType(handle), 7);
      EXPECT_TRUE(
          natives.finishCalibration(fakejvm::makeList({makeResult(250, 0.5, 812)}), handle));
    });
  });
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_NE(seen, std::thread::id());
  EXPECT_NE(seen, std::this_thread::get_id());
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 812);
}

TEST_F(CarelessPlugin, CallingBackAfterTheEndStillWorksWhileTheCalibratorLives) {
  KovCalibrator made = calibrator();
  ASSERT_EQ(made.execute(), OM_OK);
  const std::size_t before = delegate.events.size();
  Natives late(jvm.runtime);
  late.sendProgress(50, addressOf(made));
  late.drawTestpattern(1, 2, 3, addressOf(made));
  EXPECT_TRUE(late.measureLuminance(addressOf(made)).has_value());
  EXPECT_TRUE(late.finishCalibration(fakejvm::makeList({}), addressOf(made)));
  EXPECT_EQ(delegate.events.size(), before + 4);
  EXPECT_EQ(made.execute(), OM_OK);
}

TEST_F(CarelessPlugin, FinishingWithoutAListEndsTheRunWithAJavaError) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun& run) { run.finish(nullptr); });
  EXPECT_EQ(made.execute(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "java/util/List.size()I called on null");
  EXPECT_TRUE(delegate.events.empty()) << "nothing has finished";
  world.onCalibrate(simpleCalibration);
  EXPECT_EQ(made.execute(), OM_OK);
}

TEST_F(CarelessPlugin, NullAmongTheResultsIsCollectedAndReadAsNoData) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun& run) { run.finish(fakejvm::makeList({nullptr, nullptr})); });
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(made.getCalibrationData().asString("?"), "");
  EXPECT_NE(made.getErrorMsg().find(" called on null"), std::string::npos);
}

TEST_F(CarelessPlugin, AListThatThrowsWhileItIsReadEndsTheRunWithItsException) {
  KovCalibrator made = calibrator();
  const fakejvm::ObjectRef list = jvm.object("throwing", "java/util/ArrayList");
  list->setElements({makeResult(1, 1, 1), makeResult(2, 2, 2)});
  jvm->script(list, "get", [](fakejvm::Call& call) -> fakejvm::Value {
    if (call.args.at(0).asInt() == 0) return call.self->elements().at(0);
    throw fakejvm::JavaThrow("java/util/ConcurrentModificationException");
  });
  world.onCalibrate([&](CalibrationRun& run) { run.finish(list); });
  EXPECT_EQ(made.execute(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "");
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 1) << "what came before it is kept";
}

TEST_F(CarelessPlugin, ATwiceFinishedRunKeepsTheFirstResults) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun& run) {
    run.finishWith(250, 0.5, 812);
    run.finishWith(100, 0.1, 17);
  });
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 812);
}

TEST_F(CarelessPlugin, ARunThatCallsARunFromItsDelegateEndsBoth) {
  KovCalibrator inner = calibrator();
  KovCalibrator outer = calibrator();
  int depth = 0;
  delegate.onShow = [&](auto&) {
    if (depth++ > 0) return;
    EXPECT_EQ(inner.execute(), OM_OK);
  };
  EXPECT_EQ(outer.execute(), OM_OK);
  EXPECT_EQ(outer.getCalibrationData()["photoSensorAD"].asInt(), 812);
}

}  // namespace
