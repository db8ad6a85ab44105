// SPDX-License-Identifier: MIT
// A whole calibration of 52 gray levels, through the library and driven from Java alone.
#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"
#include "simulator/meter/sim_meter.h"

namespace {

using lumora::kov::PatchRecord;

// Another than the one whose history is measured: each calibration adds to it.
constexpr const char* kCalibratedModel = "OR-C240";
constexpr const char* kCalibratedSerial = "24000777";

class Instrument : public lumora::kov::KovCalibratorDelegate {
 public:
  Instrument() : meter(MDSimOpen(163, "METER-17", kCalibratedSerial)) {}
  ~Instrument() override { MDSimClose(meter); }
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;

  void showColorPatch(PatchRecord& patch) override {
    ++steps;
    MDSimShowPatch(meter, patch[4], patch[5], patch[6]);
  }
  void measure(void* device, PatchRecord*, PatchRecord* result) override {
    ++steps;
    MDSimMeasure(device, &(*result)[8], &(*result)[10], &(*result)[11]);
  }
  void progress(double) override {}
  void notifyEvent(std::string) override {}

  void* meter;
  int steps = 0;
};

pocketjson::Value target() {
  pocketjson::Value target;
  target["LmaxValue"] = 250.0;
  target["LminValue"] = 0.5;
  target["IsUsedLamb"] = true;
  target["ColorTemperatureType"] = "OFF";
  target["DisplayFunctionType"] = "DICOM";
  target["numberOfGraylevels"] = 52;
  return target;
}

int calibrate() {
  Instrument instrument;
  lumora::kov::KovCalibrator calibrator(kCalibratedModel, kCalibratedSerial, 0, instrument.meter, "bench",
                                        "", &instrument);
  const bool done = calibrator.registerCallback() == OM_OK &&
                    calibrator.setCalibrationTarget(target(), {}, {}, 0.1, false) == OM_OK &&
                    calibrator.execute() == OM_OK;
  return done && calibrator.getCalibrationData().size() > 0 ? instrument.steps : -1;
}

void calibration(benchmark::State& state) {
  bench::colourMonitor();
  bench::workstation().settle("");
  const int steps = calibrate();
  if (steps <= 0) return state.SkipWithError("the calibration failed");
  bench::measure(state, [] { return calibrate(); });
  state.counters["steps"] = steps;
}

void calibrationFromJava(benchmark::State& state) {
  const bench::RawJava& r = bench::raw();
  bench::workstation().settle("");
  static const jclass host = bench::hostClass("JavaHost");
  const jmethodID method =
      r.env->GetStaticMethodID(host, "calibrate", "(Ljava/lang/String;Ljava/lang/String;)I");
  const auto run = [&] {
    r.env->PushLocalFrame(8);
    const jint steps = bench::checked(r.env, [&] {
      return r.env->CallStaticIntMethod(host, method, r.env->NewStringUTF(kCalibratedModel),
                                        r.env->NewStringUTF(kCalibratedSerial));
    });
    r.env->PopLocalFrame(nullptr);
    return steps;
  };
  const int steps = run();
  bench::measure(state, run);
  state.counters["steps"] = steps;
}

}  // namespace

BENCHMARK(calibration)->Name("calibration/library");
BENCHMARK(calibrationFromJava)->Name("calibration/raw");
