// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_CALIBRATION_CALLBACKS_FIXTURE_H_
#define L5KOV_TESTS_CALIBRATION_CALLBACKS_FIXTURE_H_

#include <functional>

#include "tests/calibration/calibrator_fixture.h"

namespace kovtest {

// Runs of which the test itself is the Java side.
class Callbacks : public CalibratorTest {
 protected:
  // Runs `body` as the Java side's calibration; the log begins with it.
  void run(KovCalibrator& made, const std::function<void(CalibrationRun&)>& body,
           OmError expected = OM_OK) {
    world.onCalibrate([&](CalibrationRun& inside) {
      jvm.log.clear();
      body(inside);
      logInside = jvm.log.lines();
    });
    EXPECT_EQ(made.execute(), expected);
  }
  void run(const std::function<void(CalibrationRun&)>& body) {
    KovCalibrator made = calibrator();
    run(made, body);
  }
  // The JNI calls of the last run, from its beginning to its end on the Java side.
  Lines logInside;
};

}  // namespace kovtest

#endif  // L5KOV_TESTS_CALIBRATION_CALLBACKS_FIXTURE_H_
