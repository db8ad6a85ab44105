// SPDX-License-Identifier: MIT
// The native methods: registration, arithmetic, and what each asks of Java and the delegate.
#include <gtest/gtest.h>

#include <iterator>
#include <limits>

#include "tests/calibration/callbacks_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using lumora::kov::PatchRecord;

std::vector<double> numbersOf(const PatchRecord& record) {
  return {std::begin(record.values), std::end(record.values)};
}
PatchRecord zeroBut(std::initializer_list<std::pair<std::size_t, double>> numbers) {
  PatchRecord record = {};
  for (const auto& [index, number] : numbers) record[index] = number;
  return record;
}

TEST_F(Callbacks, RegistersSixMethodsInThisOrder) {
  KovCalibrator made = calibrator();
  jvm.log.clear();
  EXPECT_EQ(made.registerCallback(), OM_OK);
  EXPECT_EQ(jvm.log, inFrame(Lines{std::string("FindClass ") + kCallbackClass,
                                   std::string("RegisterNatives ") + kCallbackClass + " 6"}));
  EXPECT_EQ(
      jvm->nativeMethods(),
      (Lines{"jniSendProgress(IJ)V", "jniDrawTestpattern(IIIJ)V", "jniMeasureLuminance(J)[D",
             "jniFinishCalibration(Ljava/util/List;J)Z",
             "jniGetMeasurementSerialNumber(J)Ljava/lang/String;", "jniGetMeasurementType(J)I"}));
}

TEST_F(Callbacks, MissingCallbackClassIsAJavaErrorWithoutAMessage) {
  jvm->missingClass(kCallbackClass);
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.registerCallback(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "");
  EXPECT_FALSE(jvm.log.contains(std::string("RegisterNatives ") + kCallbackClass + " 6"));
  jvm.allowPendingException();  // the look-up's own, until the next guarded call
}

TEST_F(Callbacks, ExceptionOfAFailedRegistrationIsDiscardedByTheNextCall) {
  jvm->missingClass(kCallbackClass);
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.registerCallback(), OM_ERR_JAVA);
  EXPECT_EQ(made.restore(), OM_OK);
  EXPECT_EQ(jvm->pendingException(), nullptr);
}

TEST_F(Callbacks, RefusedRegistrationIsAJavaError) {
  jvm->missingMember(kCallbackClass, "jniGetMeasurementType", "(J)I");
  KovCalibrator made = calibrator();
  EXPECT_EQ(made.registerCallback(), OM_ERR_JAVA);
  jvm.allowPendingException();
}

TEST_F(Callbacks, TestPatternIsDividedBy255AndTheRestIsZero) {
  run([](CalibrationRun& run) { run.draw(255, 128, 0); });
  ASSERT_EQ(delegate.shown.size(), 1U);
  EXPECT_EQ(numbersOf(delegate.shown[0]),
            numbersOf(zeroBut({{4, 1.0}, {5, 128.0 / 255.0}, {6, 0.0}})));
  EXPECT_NEAR(delegate.shown[0][5], 0.50196, 1e-5);
}

TEST_F(Callbacks, TestPatternIsNeitherClampedNorRounded) {
  run([](CalibrationRun& run) { run.draw(-255, 510, std::numeric_limits<int>::max()); });
  EXPECT_EQ(delegate.shown.at(0)[4], -1.0);
  EXPECT_EQ(delegate.shown.at(0)[5], 2.0);
  EXPECT_EQ(delegate.shown.at(0)[6], 2147483647.0 / 255.0);
}

TEST_F(Callbacks, EveryComponentIsItsIntegerDividedBy255) {
  run([](CalibrationRun& run) {
    for (int c = 0; c <= 255; ++c) run.draw(c, 255 - c, c);
  });
  ASSERT_EQ(delegate.shown.size(), 256U);
  for (int c = 0; c <= 255; ++c) {
    const PatchRecord& patch = delegate.shown[static_cast<std::size_t>(c)];
    EXPECT_EQ(patch[4], c / 255.0);
    EXPECT_EQ(patch[5], (255 - c) / 255.0);
    EXPECT_EQ(patch[6], c / 255.0);
  }
}

TEST_F(Callbacks, ProgressFiftyReachesTheDelegateAsOneHalf) {
  run([](CalibrationRun& run) {
    for (const int percent : {50, 0, 100, 33, -7, 250}) run.progress(percent);
  });
  EXPECT_EQ(delegate.fractions, (std::vector<double>{0.5, 0.0, 1.0, 0.33, -0.07, 2.5}));
}

TEST_F(Callbacks, MeasureReturnsIndices8And10And11) {
  std::optional<std::vector<double>> measured;
  delegate.onMeasure = [](PatchRecord&, PatchRecord& result) { result[9] = 999.0; };
  run([&](CalibrationRun& run) { measured = run.measure(); });
  EXPECT_EQ(measured, (std::vector<double>{120.5, 0.31, 0.33})) << "index 9 is never returned";
}

TEST_F(Callbacks, MeasureMakesOneArrayAndFillsItAtOnce) {
  KovCalibrator made = calibrator();
  run(made, [](CalibrationRun& run) { run.measure(); });
  EXPECT_EQ(logInside, (Lines{"enter jniMeasureLuminance(" + std::to_string(addressOf(made)) + ")",
                              "NewDoubleArray 3", "SetDoubleArrayRegion 0 3 [120.5,0.31,0.33]",
                              "leave jniMeasureLuminance"}));
}

TEST_F(Callbacks, MeasureGetsTheDeviceACopyOfThePatchAndAZeroRecord) {
  delegate.onShow = [](PatchRecord& patch) { patch[17] = 4.25; };
  delegate.onMeasure = [](PatchRecord& patch, PatchRecord&) { patch[4] = 77.0; };
  run([](CalibrationRun& run) {
    run.measure();
    run.draw(255, 0, 51);
    run.measure();
    run.measure();
  });
  EXPECT_EQ(delegate.devices, std::vector<void*>(3, device()));
  for (const PatchRecord& result : delegate.emptyResults) {
    EXPECT_EQ(numbersOf(result), numbersOf(PatchRecord{}));
  }
  EXPECT_EQ(numbersOf(delegate.measuredPatches[0]), numbersOf(PatchRecord{}))
      << "before the first test pattern";
  const auto patch = numbersOf(zeroBut({{4, 1.0}, {6, 0.2}, {17, 4.25}}));
  EXPECT_EQ(numbersOf(delegate.measuredPatches[1]), patch) << "as the delegate left it";
  EXPECT_EQ(numbersOf(delegate.measuredPatches[2]), patch)
      << "what measure() writes into its copy is gone";
}

TEST_F(Callbacks, NextTestPatternBeginsWithAZeroRecord) {
  delegate.onShow = [](PatchRecord& patch) { patch[0] += 1.0; };
  run([](CalibrationRun& run) {
    run.draw(0, 0, 0);
    run.draw(0, 0, 0);
    run.measure();
  });
  EXPECT_EQ(delegate.measuredPatches.at(0)[0], 1.0);
}

TEST_F(Callbacks, CurrentPatchOutlivesTheRun) {
  KovCalibrator made = calibrator();
  run(made, [](CalibrationRun& run) { run.draw(255, 255, 255); });
  run(made, [](CalibrationRun& run) { run.measure(); });
  EXPECT_EQ(delegate.measuredPatches.at(0)[4], 1.0);
}

TEST_F(Callbacks, ArrayThatCannotBeMadeIsNullAndAJavaError) {
  KovCalibrator made = calibrator();
  int calls = 0;
  run(
      made,
      [&](CalibrationRun& run) {
        jvm->failCall(jvm->callCount() + 1, fakejvm::Fault::nullResult());
        ++calls;
        run.measure();
        ++calls;
      },
      OM_ERR_JAVA);
  EXPECT_EQ(calls, 1) << "the error is pending when the native method returns";
  EXPECT_EQ(made.getErrorMsg(), "Java heap space");
  EXPECT_EQ(jvm->faultsApplied(), 1);
  world.onCalibrate(simpleCalibration);
  EXPECT_EQ(made.execute(), OM_OK);
}

TEST_F(Callbacks, SerialNumberIsTheOneReadAtConstruction) {
  KovCalibrator made = calibrator();
  fakeMeter().serialNumber = "CHANGED";
  std::optional<std::string> reported;
  run(made, [&](CalibrationRun& run) { reported = run.serialNumber(); });
  EXPECT_EQ(reported, "METER-01");
  EXPECT_EQ(logInside,
            (Lines{"enter jniGetMeasurementSerialNumber(" + std::to_string(addressOf(made)) + ")",
                   "NewStringUTF \"METER-01\"", "leave jniGetMeasurementSerialNumber"}));
}

TEST_F(Callbacks, NullSerialNumberIsReportedAsTheEmptyText) {
  fakeMeter().serialNumber.reset();
  std::optional<std::string> reported;
  run([&](CalibrationRun& run) { reported = run.serialNumber(); });
  EXPECT_EQ(reported, "");
}

TEST_F(Callbacks, DeviceTypeIsTheJavaCodeOfTheDevice) {
  const std::vector<std::pair<std::uint32_t, int>> rows = {
      {163, 7}, {302, 23}, {1003, -1}, {161, 1004}, {0, -2}, {0xFFFFFFFFU, -2}, {8, 21}};
  for (const auto& [id, code] : rows) {
    fakeMeter().deviceId = id;
    int reported = 0;
    run([&](CalibrationRun& run) { reported = run.deviceType(); });
    EXPECT_EQ(reported, code) << id;
  }
  EXPECT_EQ(logInside.size(), 2U) << "no call into Java";
}

TEST_F(Callbacks, WithoutADelegateNothingIsForwardedAndMeasureIsNull) {
  KovCalibrator made("L5-X240", "SN0001", 0, device(), "text", "", nullptr);
  run(made, [](CalibrationRun& run) {
    run.progress(1);
    run.draw(1, 2, 3);
    EXPECT_EQ(run.measure(), std::nullopt);
    EXPECT_EQ(run.serialNumber(), "METER-01");
    EXPECT_EQ(run.deviceType(), 7);
    EXPECT_TRUE(run.finishWith(1, 2, 3));
  });
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 3);
}

TEST_F(Callbacks, AfterACancelOnlySerialNumberTypeAndFinishWork) {
  KovCalibrator made = calibrator();
  run(
      made,
      [&](CalibrationRun& run) {
        run.draw(255, 255, 255);
        EXPECT_EQ(made.cancel(), OM_OK);
        delegate.events.clear();
        run.progress(99);
        run.draw(1, 2, 3);
        EXPECT_EQ(run.measure(), std::nullopt);
        EXPECT_TRUE(delegate.events.empty());
        EXPECT_EQ(run.serialNumber(), "METER-01");
        EXPECT_EQ(run.deviceType(), 7);
        EXPECT_TRUE(run.finishWith(200, 0.3, 55));
        EXPECT_EQ(delegate.events, std::vector<std::string>{"FinishCalibration"});
        throw fakejvm::JavaThrow("java/lang/IllegalStateException", "spares the pause");
      },
      OM_ERR_JAVA);
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 55);
}

TEST_F(Callbacks, LocalReferencesLiveUntilTheCallbackReturns) {
  run([this](CalibrationRun& run) {
    const int before = jvm->localRefs();
    for (int i = 0; i < 100; ++i) {
      run.draw(i, i, i);
      run.measure();
      run.serialNumber();
    }
    EXPECT_EQ(jvm->localRefs(), before);
  });
}

TEST_F(Callbacks, DelegateMayUseTheLibraryItself) {
  std::string model;
  delegate.onMeasure = [&](PatchRecord&, PatchRecord&) {
    model = lumora::kov::KovMonitorManager::get().getMonitors().at(0).getModelName();
  };
  run([](CalibrationRun& run) { EXPECT_TRUE(run.measure().has_value()); });
  EXPECT_EQ(model, "L5-X240");
}

}  // namespace
