// SPDX-License-Identifier: MIT
// The calibrator's construction, a run, restore, and what Java sees of them.
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <thread>
#include <type_traits>

#include "tests/calibration/calibrator_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;

static_assert(!std::is_polymorphic_v<KovCalibrator>);
static_assert(!std::is_copy_constructible_v<KovCalibrator> &&
              !std::is_copy_assignable_v<KovCalibrator> &&
              !std::is_move_constructible_v<KovCalibrator>);

class Calibrator : public CalibratorTest {
 protected:
  // The elements of the list that a run of this mode passes, "T" for the target.
  std::string targetsOf(int mode) {
    std::string list;
    world.onCalibrate([&](CalibrationRun& run) {
      for (const fakejvm::Value& entry : run.targets) list += entry.isNull() ? "-" : "T";
    });
    KovCalibrator made = calibrator(mode);
    EXPECT_EQ(made.execute(), OM_OK);
    return list;
  }
};

const std::string kNewTarget = std::string("NewObjectV ") + kTargetClass + ".<init>()";

TEST_F(Calibrator, ConstructorMakesResultListThenTargetValues) {
  const KovCalibrator made = calibrator();
  EXPECT_EQ(jvm.log, inFrame(guarded("NewObjectV java/util/ArrayList.<init>()") +
                             Lines{"NewGlobalRef ArrayList#1"} + guarded(kNewTarget) +
                             Lines{"NewGlobalRef CalibrationTargetValues#1"}));
}

TEST_F(Calibrator, DestructorReleasesResultListThenTargetValuesAndNothingElse) {
  {
    const KovCalibrator made = calibrator();
    jvm.log.clear();
  }
  EXPECT_EQ(jvm.log,
            (Lines{"DeleteGlobalRef ArrayList#1", "DeleteGlobalRef CalibrationTargetValues#1"}));
  EXPECT_EQ(world.abortCount(), 0);
}

TEST_F(Calibrator, NewCalibratorIsNotCanceledAndHasNoMessage) {
  const KovCalibrator made = calibrator();
  EXPECT_FALSE(made.isCanceled());
  EXPECT_EQ(made.getErrorMsg(), "");
}

TEST_F(Calibrator, ConstructorReadsTheDeviceOnceSerialNumberAskedTwice) {
  KovCalibrator made = calibrator();
  const std::vector<std::string> calls = {"MDGetDeviceID", "MDGetSerialNumber",
                                          "MDGetSerialNumber"};
  EXPECT_EQ(fakeMeter().calls, calls);
  EXPECT_EQ(fakeMeter().handles, std::vector<void*>(3, device()));
  made.execute();
  EXPECT_EQ(fakeMeter().calls, calls) << "later changes of the device are not seen";
}

TEST_F(Calibrator, NullSerialNumberIsAskedForOnce) {
  fakeMeter().serialNumber.reset();
  const KovCalibrator made = calibrator();
  EXPECT_EQ(fakeMeter().calls, (std::vector<std::string>{"MDGetDeviceID", "MDGetSerialNumber"}));
}

TEST_F(Calibrator, DeviceIsReadAfterTheJavaObjectsWereMade) {
  jvm->script(kTargetClass, "<init>()V", [](fakejvm::Call&) -> fakejvm::Value {
    EXPECT_TRUE(fakeMeter().calls.empty());
    return {};
  });
  calibrator();
  EXPECT_FALSE(fakeMeter().calls.empty());
}

TEST_F(Calibrator, JavaExceptionOfTheConstructorLeavesItAsAnException) {
  jvm->script(kTargetClass, "<init>()V", fakejvm::throws("java/lang/Error", "no target"));
  try {
    calibrator();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const lumora::kov::java::JavaException& e) {
    EXPECT_EQ(e.getClassName(), "java.lang.Error");
    EXPECT_STREQ(e.what(), "no target");
  }
  EXPECT_EQ(jvm->liveGlobalRefs(), 0) << "the result list is released";
  EXPECT_TRUE(fakeMeter().calls.empty());
}

TEST_F(Calibrator, ExecuteAsksInThisOrder) {
  world.onCalibrate([](CalibrationRun&) {});
  KovCalibrator made = calibrator(1);
  jvm.log.clear();
  EXPECT_EQ(made.execute(), OM_OK);
  const std::string address = std::to_string(addressOf(made));
  EXPECT_EQ(jvm.log,
            inFrame(looksUp("monitor") + guarded("NewObjectV java/util/ArrayList.<init>()") +
                        Lines{"NewGlobalRef ArrayList#2"} +
                        guarded("CallBooleanMethodV ArrayList#2.add(null)") +
                        guarded("CallBooleanMethodV ArrayList#2.add(CalibrationTargetValues#1)") +
                        inFrame(Lines{"NewStringUTF \"text\""} +
                                guarded("CallVoidMethodV monitor.performCalibration("
                                        "ArrayList#2,0,52,0,\"text\"," +
                                        address + ")")) +
                        released("ArrayList#2") + released("monitor"),
                    1024));
}

TEST_F(Calibrator, ModeZeroPassesExactlyTheTarget) { EXPECT_EQ(targetsOf(0), "T"); }

TEST_F(Calibrator, ModeThreePassesThreeNullsAndTheTarget) { EXPECT_EQ(targetsOf(3), "---T"); }

TEST_F(Calibrator, NegativeModePassesAnEmptyList) {
  EXPECT_EQ(targetsOf(-1), "");
  EXPECT_EQ(targetsOf(std::numeric_limits<int>::min()), "");
}

TEST_F(Calibrator, TargetOfTheListIsTheOneThatSetCalibrationTargetFilled) {
  pocketjson::Value target;
  target["LmaxValue"] = 321.0;
  double luminance = 0.0;
  world.onCalibrate(
      [&](CalibrationRun& run) { luminance = run.target()->field("maxLuminance").asDouble(); });
  KovCalibrator made = calibrator();
  ASSERT_EQ(setTarget(made, target), OM_OK);
  made.execute();
  EXPECT_EQ(luminance, 321.0);
}

TEST_F(Calibrator, ArgumentsKeepTheirOrderAndTheHandleIsTheCalibratorsAddress) {
  pocketjson::Value target;
  target["IsUsedExternalSensors"] = true;
  target["numberOfGraylevels"] = 18;
  target["measureBacklightResponse"] = false;
  KovCalibrator made = calibrator();
  ASSERT_EQ(setTarget(made, target), OM_OK);
  world.onCalibrate([&](CalibrationRun& run) {
    EXPECT_TRUE(run.useExternalSensors);
    EXPECT_EQ(run.graylevelCount, 18);
    EXPECT_FALSE(run.measureBacklightResponse);
    EXPECT_EQ(run.text, "text");
    EXPECT_EQ(run.handle, addressOf(made));
    EXPECT_EQ(run.monitor, objects.monitor);
  });
  EXPECT_EQ(made.execute(), OM_OK);
  target["IsUsedExternalSensors"] = false;
  target["measureBacklightResponse"] = true;
  ASSERT_EQ(setTarget(made, target), OM_OK);
  world.onCalibrate([&](CalibrationRun& run) {
    EXPECT_FALSE(run.useExternalSensors);
    EXPECT_TRUE(run.measureBacklightResponse);
  });
  EXPECT_EQ(made.execute(), OM_OK);
}

TEST_F(Calibrator, WithoutATargetTheDefaultsArePassed) {
  world.onCalibrate([](CalibrationRun& run) {
    EXPECT_FALSE(run.useExternalSensors);
    EXPECT_EQ(run.graylevelCount, 52);
    EXPECT_FALSE(run.measureBacklightResponse);
  });
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.execute(), OM_OK);
}

TEST_F(Calibrator, AuxiliaryTextReachesNobody) {
  KovCalibrator made = calibrator();
  setTarget(made, {});
  made.execute();
  made.restore();
  made.getCalibrationData();
  for (const std::string& line : jvm.log.lines()) {
    EXPECT_EQ(line.find("auxiliary"), std::string::npos) << line;
  }
}

TEST_F(Calibrator, ExecuteRunsTheDelegateOnItsOwnThread) {
  std::thread::id seen;
  delegate.onProgress = [&](double) { seen = std::this_thread::get_id(); };
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(seen, std::this_thread::get_id());
}

TEST_F(Calibrator, WholeRunReachesTheDelegateInOrder) {
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(delegate.events,
            (std::vector<std::string>{"progress", "show", "measure", "progress", "show", "measure",
                                      "progress", "FinishCalibration"}));
}

TEST_F(Calibrator, ExecuteMayBeCalledAgain) {
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(delegate.events.size(), 16U);
}

TEST_F(Calibrator, RestoreActivatesTheTableAtThePositionOfTheMode) {
  KovCalibrator made = calibrator(1);
  jvm.log.clear();
  EXPECT_EQ(made.restore(), OM_OK);
  EXPECT_EQ(jvm.log, looksUp("monitor") +
                         inFrame(guardedObject("monitor.getLookUpTables()", "monitorLuts") +
                                 guardedObject("monitorLuts.get(1)", "monitorLut1") +
                                 guarded("CallVoidMethodV monitorLut1.activate()") +
                                 released("monitorLut1") + released("monitorLuts")) +
                         released("monitor"));
  EXPECT_TRUE(objects.luts[1]->field("active").asBool());
}

TEST_F(Calibrator, RestoreLooksAtNeitherFlag) {
  KovCalibrator made = calibrator();
  made.cancel();
  EXPECT_EQ(made.restore(), OM_OK);
  EXPECT_TRUE(made.isCanceled());
}

TEST_F(Calibrator, RestoreOfANegativeModeIsTheJavaLibrarysOwnException) {
  KovCalibrator made = calibrator(-1);
  EXPECT_EQ(made.restore(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "Index -1 out of bounds for length 2");
}

TEST_F(Calibrator, NullLookUpTableListFailsRestoreAsJavaError) {
  objects.monitor->setField("lookUpTables", nullptr);
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.restore(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "java/util/List.get(I)Ljava/lang/Object; called on null");
}

TEST_F(Calibrator, UnknownMonitorFailsEveryOperationAndLeavesTheMessage) {
  KovCalibrator made = strangersCalibrator();
  EXPECT_EQ(made.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.cancel(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.restore(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(setTarget(made, {}), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.getErrorMsg(), "");
  made.getCalibrationData();  // a Java failure: there are no results
  const std::string message = made.getErrorMsg();
  EXPECT_NE(message, "");
  EXPECT_EQ(made.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.cancel(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.restore(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.getErrorMsg(), message);
}

TEST_F(Calibrator, MonitorIsLookedUpByNameThenKey) {
  KovCalibrator made("first", "second", 0, device(), "", "", &delegate);
  jvm.log.clear();
  made.restore();
  EXPECT_TRUE(jvm.log.contains("CallObjectMethodV library.getMonitor(\"first\",\"second\")"));
}

TEST_F(Calibrator, MayBeUsedAndDestroyedOnOtherThreads) {
  std::unique_ptr<KovCalibrator> made;
  std::thread([&] {
    made = std::make_unique<KovCalibrator>("L5-X240", "SN0001", 0, device(), "text", "", &delegate);
  }).join();
  EXPECT_EQ(setTarget(*made, {}), OM_OK);
  std::thread([&] { EXPECT_EQ(made->execute(), OM_OK); }).join();
  EXPECT_EQ(made->getCalibrationData()["photoSensorAD"].asInt(), 812);
  std::thread([&] { made.reset(); }).join();
  EXPECT_EQ(jvm->liveGlobalRefs(), 0);
  EXPECT_EQ(jvm->attachedThreads(), 1);
}

TEST_F(Calibrator, AfterDeleteJavaVmOperationsFailAsOtherErrors) {
  std::thread([&] {
    KovCalibrator made = calibrator();
    lumora::kov::java::DeleteJavaVM();
    EXPECT_EQ(made.execute(), OM_ERR_COMMUNICATION);
    EXPECT_EQ(made.cancel(), OM_ERR_COMMUNICATION);
    EXPECT_EQ(made.restore(), OM_ERR_COMMUNICATION);
    EXPECT_EQ(made.registerCallback(), OM_ERR_COMMUNICATION);
    EXPECT_THROW(setTarget(made, {}), std::logic_error) << "its first steps catch Java's only";
    EXPECT_THROW(made.getCalibrationData(), std::logic_error);
    EXPECT_THROW(calibrator(), std::logic_error);
    EXPECT_EQ(made.getErrorMsg(), "");
  }).join();
}

}  // namespace
