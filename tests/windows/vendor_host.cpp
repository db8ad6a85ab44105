// SPDX-License-Identifier: MIT
// A host that makes the library ask both of the maker's native libraries.
#include <l5kov.h>

#include <cstdio>

namespace {

struct Delegate : lumora::kov::KovCalibratorDelegate {
  void showColorPatch(lumora::kov::PatchRecord&) override {}
  void measure(void*, lumora::kov::PatchRecord*, lumora::kov::PatchRecord*) override {}
  void progress(double) override {}
  void notifyEvent(std::string) override {}
};

}  // namespace

int main() {
  lumora::kov::KovMonitorManager::get().find();
  Delegate delegate;
  lumora::kov::KovCalibrator calibrator("OR-C321", "30210045", 0, nullptr, "", "", &delegate);
  pocketjson::Value target;
  target["LmaxValue"] = 250.0;
  target["LminValue"] = 0.5;
  target["ColorTemperatureType"] = "K6500";
  target["DisplayFunctionType"] = "DICOM";
  const OmError error = calibrator.setCalibrationTarget(target, {}, {}, 0.0, false);
  std::printf("target: %d\n", static_cast<int>(error));
  return error < 0;
}
