// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_SUPPORT_CALIBRATION_RUN_H_
#define L5KOV_TESTS_SUPPORT_CALIBRATION_RUN_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/fake_jvm/fake_runtime.h"

namespace kovtest {

// The six native methods as Java code would call them, typed. Each throws fakejvm::JavaThrow when
// the native method left a Java exception pending.
class Natives {
 public:
  explicit Natives(fakejvm::Runtime& fake) : runtime(fake) {}

  void sendProgress(int percent, int64_t handle);
  void drawTestpattern(int red, int green, int blue, int64_t handle);
  // Empty for a null array.
  std::optional<std::vector<double>> measureLuminance(int64_t handle);
  bool finishCalibration(const fakejvm::ObjectRef& results, int64_t handle);
  // Empty for a null string.
  std::optional<std::string> getMeasurementSerialNumber(int64_t handle);
  int getMeasurementType(int64_t handle);

 private:
  fakejvm::Runtime& runtime;
};

// One performCalibration as the Java side sees it: its arguments, and the natives with the run
// handle filled in. Runs on the thread that called execute.
class CalibrationRun {
 public:
  explicit CalibrationRun(fakejvm::Call& call);

  fakejvm::ObjectRef monitor;
  std::vector<fakejvm::Value> targets;  // with nulls
  bool useExternalSensors;
  int graylevelCount;
  bool measureBacklightResponse;
  std::string text;
  int64_t handle;

  // The last of `targets`; null when the list is empty.
  fakejvm::ObjectRef target() const;

  void progress(int percent) { natives.sendProgress(percent, handle); }
  void draw(int red, int green, int blue) { natives.drawTestpattern(red, green, blue, handle); }
  std::optional<std::vector<double>> measure() { return natives.measureLuminance(handle); }
  bool finish(const fakejvm::ObjectRef& results) {
    return natives.finishCalibration(results, handle);
  }
  // Finish with one CalibrationResultValues per target: (0, 0, -1) for all but the last.
  bool finishWith(double maxLuminance, double minLuminance, int backlight);
  std::optional<std::string> serialNumber() { return natives.getMeasurementSerialNumber(handle); }
  int deviceType() { return natives.getMeasurementType(handle); }

 private:
  fakejvm::Runtime& runtime;
  Natives natives;
};

// Asks for type and serial number, draws and measures black and white with progress 0, 50, 100,
// and finishes with (white, black, 812); a null measurement ends it without a finish.
void simpleCalibration(CalibrationRun& run);

}  // namespace kovtest

#endif  // L5KOV_TESTS_SUPPORT_CALIBRATION_RUN_H_
