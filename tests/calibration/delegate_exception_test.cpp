// SPDX-License-Identifier: MIT
// Exceptions that leave the delegate: they pass Java as Java exceptions and end the run.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/calibration/calibrator_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;
using lumora::kov::java::JavaException;

// The delegate's operation by number: 0 showColorPatch, 1 measure, 2 progress, 3 notifyEvent.
using Throwing = std::function<void()>;
void throwFrom(RecordingDelegate& delegate, int operation, const Throwing& action) {
  delegate.onShow = nullptr;
  delegate.onMeasure = nullptr;
  delegate.onProgress = nullptr;
  delegate.onEvent = nullptr;
  if (operation == 0) delegate.onShow = [action](auto&) { action(); };
  if (operation == 1) delegate.onMeasure = [action](auto&, auto&) { action(); };
  if (operation == 2) delegate.onProgress = [action](double) { action(); };
  if (operation == 3) delegate.onEvent = [action](const std::string&) { action(); };
}

class DelegateException : public CalibratorTest {
 protected:
  // For each of the four operations: the run ends with this code and message, Java sees an
  // exception of this class, and the same calibrator calibrates again after it.
  void expectToEndTheRun(const Throwing& action, const std::string& javaClass,
                         const std::string& message, OmError code = OM_ERR_JAVA) {
    for (int operation = 0; operation < 4; ++operation) {
      SCOPED_TRACE(operation);
      KovCalibrator made = calibrator();
      std::string seen;
      world.onCalibrate([&](CalibrationRun& run) {
        try {
          simpleCalibration(run);
        } catch (const fakejvm::JavaThrow& thrown) {
          seen = thrown.throwable->className;
          throw;
        }
      });
      throwFrom(delegate, operation, action);
      EXPECT_EQ(made.execute(), code);
      EXPECT_EQ(made.getErrorMsg(), message);
      EXPECT_EQ(seen, javaClass);
      EXPECT_EQ(jvm->pendingException(), nullptr);
      throwFrom(delegate, -1, {});
      EXPECT_EQ(made.execute(), OM_OK) << "the calibrator is usable again";
      EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 812);
    }
  }
};

TEST_F(DelegateException, StdExceptionEndsTheRunAsAJavaErrorWithItsText) {
  expectToEndTheRun([] { throw std::runtime_error("panel gone"); }, "java/lang/RuntimeException",
                    "panel gone");
}

TEST_F(DelegateException, NumberEndsTheRunAsAJavaErrorWithAFixedText) {
  expectToEndTheRun([] { throw 42; }, "java/lang/RuntimeException",
                    "unknown exception in a calibration callback");
}

TEST_F(DelegateException, JavaExceptionBecomesTheVeryJavaException) {
  jvm->script(objects.osd, "isLocked", fakejvm::throws("java/io/IOException", "usb torn"));
  expectToEndTheRun(
      [] { lumora::kov::KovMonitorManager::get().getMonitors().at(0).getKeyLockState(); },
      "java/io/IOException", "usb torn");
}

TEST_F(DelegateException, JavaExceptionOfAFailedTransmissionKeepsItsCode) {
  jvm->script(objects.osd, "isLocked",
              fakejvm::throws("java/io/IOException", "usb: Error sending data (5)"));
  expectToEndTheRun(
      [] { lumora::kov::KovMonitorManager::get().getMonitors().at(0).getKeyLockState(); },
      "java/io/IOException", "usb: Error sending data (5)", OM_ERR_COMMUNICATION);
}

TEST_F(DelegateException, JavaExceptionWithoutAJavaObjectBecomesARuntimeException) {
  objects.monitor->setField("osd", nullptr);
  expectToEndTheRun(
      [] { lumora::kov::KovMonitorManager::get().getMonitors().at(0).getKeyLockState(); },
      "java/lang/RuntimeException", "com/orva/kov/library/api/Osd.isLocked()Z called on null");
}

TEST_F(DelegateException, JavaExceptionThatTheDelegateMadeItselfKeepsItsText) {
  expectToEndTheRun([] { throw JavaException(nullptr, nullptr, "java.io.IOException", "own"); },
                    "java/lang/RuntimeException", "own");
}

TEST_F(DelegateException, PatchOfAFailedShowIsNotKept) {
  KovCalibrator made = calibrator();
  delegate.onShow = [](auto& patch) {
    if (patch[4] == 1.0) throw std::runtime_error("cannot draw");
  };
  world.onCalibrate([](CalibrationRun& run) {
    run.draw(51, 0, 0);
    try {
      run.draw(255, 0, 0);
      ADD_FAILURE() << "no Java exception";
    } catch (const fakejvm::JavaThrow&) {
    }
    EXPECT_TRUE(run.measure().has_value());
  });
  EXPECT_EQ(made.execute(), OM_OK) << "the Java side may go on";
  EXPECT_EQ(delegate.measuredPatches.at(0)[4], 0.2);
}

TEST_F(DelegateException, FailedNotificationLeavesTheResultsTakenAndTheRunInactive) {
  KovCalibrator made = calibrator();
  delegate.onEvent = [](const std::string&) { throw std::runtime_error("no window"); };
  EXPECT_EQ(made.execute(), OM_ERR_JAVA);
  EXPECT_EQ(made.getCalibrationData()["photoSensorAD"].asInt(), 812);
  made.cancel();
  EXPECT_EQ(world.abortCount(), 0);
}

}  // namespace
