// SPDX-License-Identifier: MIT
#include "run/stored_target.h"

#include "record/display_functions.h"

namespace kovctl {
std::optional<TargetRequest> storedTarget(const lumora::Monitor& monitor, int lut) {
  const pocketjson::Value stored = monitor.getCalibrationTargetData(static_cast<unsigned>(lut));
  const auto function = displayFunctionOf(stored["displayFunction"].asInt(-1));
  if (!function) return std::nullopt;
  // As it left the factory, a table is native and has no luminance.
  const bool isFactorys =
      *function == DisplayFunction::kNative && !(stored["lmax"].asDouble() > 0.0);
  if (isFactorys) return std::nullopt;
  TargetRequest request = defaultTarget();
  TargetInfo& target = request.target;
  target.function = *function;
  target.lmax = stored["lmax"].asDouble();
  target.lmin = stored["lmin"].asDouble();
  // Kept the other way round than in the library's own target: true means that "lmin" counts.
  target.useMeasuredLmin = !stored["useLminFlag"].asBool();
  if (stored["isColorValue"].asBool() && stored["colorY"].asDouble() > 0.0) {
    target.whiteName = "CUSTOM";
    target.white = Chromaticity{stored["colorX"].asDouble(), stored["colorY"].asDouble()};
  }
  if (stored["lamb"].asDouble() > 0.0) target.ambient = stored["lamb"].asDouble();
  if (*function == DisplayFunction::kExp) target.exponent = stored["exp"].asDouble();
  return request;
}

}  // namespace kovctl
