// SPDX-License-Identifier: MIT
#include "metrics/colour.h"

#include <cmath>

namespace kovctl {

UniformChromaticity uniform(const Chromaticity& colour) {
  const double denominator = -2.0 * colour.x + 12.0 * colour.y + 3.0;
  return {4.0 * colour.x / denominator, 9.0 * colour.y / denominator};
}

double distance(const UniformChromaticity& a, const UniformChromaticity& b) {
  return std::hypot(a.u - b.u, a.v - b.v);
}

}  // namespace kovctl
