// SPDX-License-Identifier: MIT
#include "white_point.h"

namespace chroma {

/// CIE 015:2018, Colorimetry, 4.1.2: daylight of a correlated colour temperature.
bool daylight(double kelvin, WhitePoint& white) {
  if (!(kelvin >= kLowestTemperature && kelvin <= kHighestTemperature)) {
    return false;
  }
  const double t2 = kelvin * kelvin;
  const double t3 = t2 * kelvin;
  const double x = kelvin <= 7000.0
                       ? -4.6070e9 / t3 + 2.9678e6 / t2 + 0.09911e3 / kelvin + 0.244063
                       : -2.0064e9 / t3 + 1.9018e6 / t2 + 0.24748e3 / kelvin + 0.237040;
  white = {x, -3.000 * x * x + 2.870 * x - 0.275};
  return true;
}

}  // namespace chroma
