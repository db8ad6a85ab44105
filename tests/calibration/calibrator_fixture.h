// SPDX-License-Identifier: MIT
#ifndef L5KOV_TESTS_CALIBRATION_CALIBRATOR_FIXTURE_H_
#define L5KOV_TESTS_CALIBRATION_CALIBRATOR_FIXTURE_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "l5kov.h"
#include "tests/monitor/jni_lines.h"
#include "tests/support/fake_vendor.h"
#include "tests/support/kov_world.h"

namespace kovtest {

// Records what reaches it, in words; measures 120.5, 0.31, 0.33.
class RecordingDelegate : public lumora::kov::KovCalibratorDelegate {
 public:
  using PatchRecord = lumora::kov::PatchRecord;

  void showColorPatch(PatchRecord& patch) override {
    events.push_back("show");
    shown.push_back(patch);
    if (onShow) onShow(patch);
  }
  void measure(void* device, PatchRecord* patch, PatchRecord* result) override {
    events.push_back("measure");
    devices.push_back(device);
    measuredPatches.push_back(*patch);
    emptyResults.push_back(*result);
    (*result)[8] = 120.5;
    (*result)[10] = 0.31;
    (*result)[11] = 0.33;
    if (onMeasure) onMeasure(*patch, *result);
  }
  void progress(double fraction) override {
    events.push_back("progress");
    fractions.push_back(fraction);
    if (onProgress) onProgress(fraction);
  }
  void notifyEvent(std::string event) override {
    events.push_back(event);
    if (onEvent) onEvent(event);
  }

  std::vector<std::string> events;
  std::vector<PatchRecord> shown, measuredPatches, emptyResults;
  std::vector<void*> devices;
  std::vector<double> fractions;
  std::function<void(PatchRecord&)> onShow;
  std::function<void(PatchRecord&, PatchRecord&)> onMeasure;
  std::function<void(double)> onProgress;
  std::function<void(const std::string&)> onEvent;
};

// Java running and the callbacks registered; nothing of that stays in the log, and object names
// begin again. (Registered native methods outlive a reset of the fake runtime.)
struct Registered {
  explicit Registered(FakeJvm& jvm) {
    const KovWorld world(jvm);
    lumora::kov::java::Env();
    EXPECT_EQ(lumora::kov::KovCalibrator("", "", 0, nullptr, "", "", nullptr).registerCallback(),
              OM_OK);
    jvm->reset();
    resetFakeVendors();
  }
};

// A monitor with a history of four entries, so that setCalibrationTarget() finds a gamma model tag
// for the modes 0 to 3. The log is empty at first.
class CalibratorTest : public testing::Test {
 protected:
  using KovCalibrator = lumora::kov::KovCalibrator;

  CalibratorTest() {
    for (int i = 0; i < 4; ++i) world.addHistory(objects, i, "entry" + std::to_string(i));
  }

  KovCalibrator calibrator(int mode = 0) {
    return KovCalibrator("L5-X240", "SN0001", mode, device(), "text", "auxiliary", &delegate);
  }
  KovCalibrator strangersCalibrator() {
    return KovCalibrator("L5-X240", "SN9999", 0, device(), "text", "auxiliary", &delegate);
  }
  static void* device() { return reinterpret_cast<void*>(std::uintptr_t{0x1234}); }
  static std::int64_t addressOf(const KovCalibrator& calibrator) {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(&calibrator));
  }

  FakeJvm jvm;
  Registered registered{jvm};
  KovWorld world{jvm};
  MonitorObjects objects = world.addMonitor();
  RecordingDelegate delegate;
};

// What setCalibrationTarget() needs for nothing to fail.
inline OmError setTarget(lumora::kov::KovCalibrator& calibrator, const pocketjson::Value& target,
                         const pocketjson::Value& curve = {}, double ambientLight = 0.0) {
  return calibrator.setCalibrationTarget(target, curve, {}, ambientLight, false);
}

// Calls on target objects that calibrators made: "setColorX(0.5)".
inline Lines targetCalls(const FakeJvm& jvm) {
  Lines calls;
  for (const std::string& call : jvm.log.javaCalls()) {
    if (call.rfind("CalibrationTargetValues#", 0) == 0) {
      calls.push_back(call.substr(call.find('.') + 1));
    }
  }
  return calls;
}

}  // namespace kovtest

#endif  // L5KOV_TESTS_CALIBRATION_CALIBRATOR_FIXTURE_H_
