// SPDX-License-Identifier: MIT
#include "bench/java_calls/calibration_host.h"

namespace bench {
namespace {

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

}  // namespace

int calibrate(Instrument& instrument) {
  lumora::kov::KovCalibrator calibrator(kCalibratedModel, kCalibratedSerial, 0, instrument.meter,
                                        "bench", "", &instrument);
  const bool done = calibrator.registerCallback() == OM_OK &&
                    calibrator.setCalibrationTarget(target(), {}, {}, 0.1, false) == OM_OK &&
                    calibrator.execute() == OM_OK;
  return done && calibrator.getCalibrationData().size() > 0 ? instrument.steps : -1;
}

}  // namespace bench
