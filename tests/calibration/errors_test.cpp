// SPDX-License-Identifier: MIT
// The code and the message of Java failures.
#include <gtest/gtest.h>

#include "tests/calibration/calibrator_fixture.h"

namespace {

using namespace kovtest;
using lumora::kov::KovCalibrator;

constexpr const char* kIo = "java/io/IOException";
constexpr const char* kResource = "com/orva/dt/commons/resourceman/ResourceException";

class CalibrationErrors : public CalibratorTest {
 protected:
  // The result of a run in which Java throws this; its message is kept exactly.
  OmError codeOf(const std::string& javaClass, std::optional<std::string> message) {
    world.onCalibrate([=](CalibrationRun&) { throw fakejvm::JavaThrow(javaClass, message); });
    KovCalibrator made = calibrator();
    const OmError code = made.execute();
    EXPECT_EQ(made.getErrorMsg(), message.value_or(""));
    return code;
  }
};

TEST_F(CalibrationErrors, IoExceptionWithThePhraseInItsMiddleIsACommunicationError) {
  EXPECT_EQ(codeOf(kIo, "usb: Error sending data to L5-X240"), OM_ERR_COMMUNICATION);
  EXPECT_EQ(codeOf(kIo, "Error sending data"), OM_ERR_COMMUNICATION);
  EXPECT_EQ(codeOf(kIo, "x Error sending data"), OM_ERR_COMMUNICATION);
}

TEST_F(CalibrationErrors, ResourceExceptionWithThePhraseIsACommunicationError) {
  EXPECT_EQ(codeOf(kResource, "Error sending data (-4)"), OM_ERR_COMMUNICATION);
}

TEST_F(CalibrationErrors, ResourceExceptionWithThePhraseInLowerCaseIsAJavaError) {
  EXPECT_EQ(codeOf(kResource, "error sending data"), OM_ERR_JAVA);
  EXPECT_EQ(codeOf(kIo, "Error Sending Data"), OM_ERR_JAVA);
}

TEST_F(CalibrationErrors, SameMessageOfAnyOtherClassIsAJavaError) {
  for (const char* other :
       {"java/lang/RuntimeException", "java/io/FileNotFoundException", "java/io/IOException2",
        "IOException", "com/orva/dt/commons/resourceman/ResourceException$Inner",
        "java/io/UncheckedIOException"}) {
    EXPECT_EQ(codeOf(other, "Error sending data"), OM_ERR_JAVA) << other;
  }
}

TEST_F(CalibrationErrors, ShorterOrEmptyOrNullMessagesAreJavaErrors) {
  EXPECT_EQ(codeOf(kIo, "Error sending dat"), OM_ERR_JAVA);
  EXPECT_EQ(codeOf(kIo, ""), OM_ERR_JAVA);
  EXPECT_EQ(codeOf(kIo, std::nullopt), OM_ERR_JAVA);
}

TEST_F(CalibrationErrors, NewCalibratorHasNoMessage) { EXPECT_EQ(calibrator().getErrorMsg(), ""); }

TEST_F(CalibrationErrors, MessageIsKeptUntilTheNextJavaFailureAndNothingClearsIt) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun&) { throw fakejvm::JavaThrow(kIo, "first"); });
  EXPECT_EQ(made.execute(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "first");
  world.onCalibrate(simpleCalibration);
  EXPECT_EQ(made.execute(), OM_OK);
  EXPECT_EQ(made.restore(), OM_OK);
  EXPECT_EQ(made.getErrorMsg(), "first") << "a success does not clear it";
  jvm->script(objects.luts[0], "activate", fakejvm::throws(kIo, std::nullopt));
  EXPECT_EQ(made.restore(), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "") << "a null message is the empty text";
}

TEST_F(CalibrationErrors, CanNotFindMonitorGivesItsCodeAndLeavesTheMessage) {
  KovCalibrator made = calibrator();
  world.onCalibrate([](CalibrationRun&) { throw fakejvm::JavaThrow(kIo, "first"); });
  made.execute();
  objects.monitor->setField("serialNumber", "unplugged");
  EXPECT_EQ(made.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.getErrorMsg(), "first");
}

TEST_F(CalibrationErrors, MessageIsUtf8) {
  EXPECT_EQ(codeOf(kIo, "Ger\xC3\xA4t \xE6\x97\xA5"), OM_ERR_JAVA);
}

TEST_F(CalibrationErrors, EveryOperationTranslates) {
  KovCalibrator made = calibrator();
  jvm->script(kLibraryClass, "getMonitor", fakejvm::throws(kIo, "Error sending data"));
  EXPECT_EQ(made.execute(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.cancel(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.restore(), OM_ERR_COMMUNICATION);
  EXPECT_EQ(setTarget(made, {}), OM_ERR_COMMUNICATION);
  EXPECT_EQ(made.getErrorMsg(), "Error sending data");
  jvm->script(kTargetClass, "setMaxLuminance", fakejvm::throws("java/lang/Error", "no"));
  EXPECT_EQ(setTarget(made, {}), OM_ERR_JAVA);
  EXPECT_EQ(made.getErrorMsg(), "no");
}

}  // namespace
