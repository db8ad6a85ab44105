// SPDX-License-Identifier: MIT
#include "tests/support/calibration_run.h"

#include "tests/support/kov_beans.h"

namespace kovtest {

using fakejvm::ObjectRef;
using fakejvm::Value;

void Natives::sendProgress(int percent, int64_t handle) {
  runtime.callNative("jniSendProgress", {percent, handle});
}

void Natives::drawTestpattern(int red, int green, int blue, int64_t handle) {
  runtime.callNative("jniDrawTestpattern", {red, green, blue, handle});
}

std::optional<std::vector<double>> Natives::measureLuminance(int64_t handle) {
  const ObjectRef array = runtime.callNative("jniMeasureLuminance", {handle}).asObject();
  if (!array) return std::nullopt;
  return array->doubles();
}

bool Natives::finishCalibration(const ObjectRef& results, int64_t handle) {
  return runtime.callNative("jniFinishCalibration", {results, handle}).asBool();
}

std::optional<std::string> Natives::getMeasurementSerialNumber(int64_t handle) {
  const Value text = runtime.callNative("jniGetMeasurementSerialNumber", {handle});
  if (!text.asObject()) return std::nullopt;
  return text.asText();
}

int Natives::getMeasurementType(int64_t handle) {
  return runtime.callNative("jniGetMeasurementType", {handle}).asInt();
}

CalibrationRun::CalibrationRun(fakejvm::Call& call)
    : monitor(call.self),
      targets(call.args.at(0).isNull() ? std::vector<Value>()
                                       : call.args.at(0).asObject()->elements()),
      useExternalSensors(call.args.at(1).asBool()),
      graylevelCount(call.args.at(2).asInt()),
      measureBacklightResponse(call.args.at(3).asBool()),
      text(call.args.at(4).asText()),
      handle(call.args.at(5).asLong()),
      runtime(call.runtime),
      natives(call.runtime) {}

ObjectRef CalibrationRun::target() const {
  return targets.empty() ? nullptr : targets.back().asObject();
}

bool CalibrationRun::finishWith(double maxLuminance, double minLuminance, int backlight) {
  std::vector<Value> results;
  for (std::size_t i = 0; i + 1 < targets.size(); ++i) results.push_back(makeResult(0, 0, -1));
  if (!targets.empty()) results.push_back(makeResult(maxLuminance, minLuminance, backlight));
  return finish(fakejvm::makeList(std::move(results)));
}

void simpleCalibration(CalibrationRun& run) {
  run.deviceType();
  run.serialNumber();
  run.progress(0);
  run.draw(0, 0, 0);
  const auto black = run.measure();
  if (!black) return;
  run.progress(50);
  run.draw(255, 255, 255);
  const auto white = run.measure();
  if (!white) return;
  run.progress(100);
  run.finishWith(white->at(0), black->at(0), 812);
}

}  // namespace kovtest
