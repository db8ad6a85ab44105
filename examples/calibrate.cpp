// SPDX-License-Identifier: MIT
// Calibrates the first monitor. A real host draws and measures where the comments say so.
#include <l5kov.h>

#include <iostream>

struct MyDelegate : lumora::kov::KovCalibratorDelegate {
  void showColorPatch(lumora::kov::PatchRecord&) override { /* draw components 4, 5, 6 */
  }
  void measure(void*, lumora::kov::PatchRecord*, lumora::kov::PatchRecord* result) override {
    (*result)[8] = 100.0;  // luminance in cd/m²; 10 and 11: chromaticity x and y
  }
  void progress(double fraction) override { std::cout << 100 * fraction << " %\n"; }
  void notifyEvent(std::string) override {}
};

int main() {
  auto& manager = lumora::kov::KovMonitorManager::get();
  manager.find();
  const lumora::Monitor monitor = manager.getMonitors().at(0);
  MyDelegate delegate;
  void* instrument = nullptr;  // the handle of your measuring instrument
  lumora::kov::KovCalibrator calibrator(monitor.getModelName(), monitor.getSerialNumber(), 0,
                                        instrument, "", "", &delegate);
  pocketjson::Value target;
  target["LmaxValue"] = 250.0;
  target["LminValue"] = 0.5;
  target["DisplayFunctionType"] = "DICOM";
  target["ColorTemperatureType"] = "OFF";
  OmError error = calibrator.registerCallback();
  if (error >= 0) error = calibrator.setCalibrationTarget(target, {}, {}, 0.0, false);
  if (error >= 0) error = calibrator.execute();
  if (error < 0) std::cerr << calibrator.getErrorMsg() << '\n';
  return error < 0;
}
