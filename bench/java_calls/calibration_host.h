// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_JAVA_CALLS_CALIBRATION_HOST_H_
#define L5KOV_BENCH_JAVA_CALLS_CALIBRATION_HOST_H_

#include <l5kov.h>

#include "simulator/meter/sim_meter.h"

// A host that calibrates a simulated monitor to 52 gray levels.
namespace bench {

// Another than the one whose history is measured: each calibration adds to it.
inline constexpr const char* kCalibratedModel = "OR-C240";
inline constexpr const char* kCalibratedSerial = "24000777";

class Instrument : public lumora::kov::KovCalibratorDelegate {
 public:
  Instrument() : meter(MDSimOpen(163, "METER-17", kCalibratedSerial)) {}
  ~Instrument() override { MDSimClose(meter); }
  Instrument(const Instrument&) = delete;
  Instrument& operator=(const Instrument&) = delete;

  void showColorPatch(lumora::kov::PatchRecord& patch) override {
    ++steps;
    MDSimShowPatch(meter, patch[4], patch[5], patch[6]);
  }
  void measure(void* device, lumora::kov::PatchRecord*, lumora::kov::PatchRecord* result) override {
    ++steps;
    MDSimMeasure(device, &(*result)[8], &(*result)[10], &(*result)[11]);
  }
  void progress(double) override {}
  void notifyEvent(std::string) override {}

  void* meter;
  int steps = 0;
};

// The number of patches and measurements, or -1 when it failed.
int calibrate(Instrument& instrument);

}  // namespace bench

#endif  // L5KOV_BENCH_JAVA_CALLS_CALIBRATION_HOST_H_
