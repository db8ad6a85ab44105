// SPDX-License-Identifier: MIT
#include "run/library_target.h"

#include "record/run_record_json.h"

namespace kovctl {

pocketjson::Value libraryTarget(const TargetRequest& request) {
  const TargetInfo& target = request.target;
  pocketjson::Value value;
  value["LmaxValue"] = target.lmax;
  value["LminValue"] = target.lmin;
  value["IsUsedMeasurementLmin"] = target.useMeasuredLmin;
  value["IsUsedLamb"] = target.ambient.has_value();
  value["ColorTemperatureType"] = target.whiteName;
  if (target.white) {
    value["ColorXValue"] = target.white->x;
    value["ColorYValue"] = target.white->y;
  }
  value["DisplayFunctionType"] = std::string(nameOf(target.function));
  if (target.exponent) value["ExpValue"] = *target.exponent;
  value["numberOfGraylevels"] = target.levels;
  value["IsUsedExternalSensors"] = request.useExternalSensors;
  value["measureBacklightResponse"] = request.measureBacklightResponse;
  return value;
}

pocketjson::Value libraryCurve(const TargetInfo& target) {
  pocketjson::Value curve;
  for (const double point : target.userCurve) curve.append(point);
  return curve;
}

}  // namespace kovctl
