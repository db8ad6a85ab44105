// SPDX-License-Identifier: MIT
#include "transmission.h"

#include <cmath>

namespace kovpanel {

Transmission::Transmission(double atQuarter, double atHalf, double atThreeQuarters)
    : gamma50(atHalf),
      slope((atThreeQuarters - atQuarter) / 0.5),
      curvature((atThreeQuarters - 2.0 * atHalf + atQuarter) / (2.0 * 0.25 * 0.25)) {}

double Transmission::gamma(double drive) const {
  const double offset = drive - 0.5;
  return gamma50 + offset * (slope + offset * curvature);
}

double Transmission::operator()(double drive) const {
  if (drive <= 0.0) {
    return 0.0;
  }
  if (drive >= 1.0) {
    return 1.0;
  }
  return std::pow(drive, gamma(drive));
}

bool Transmission::rises() const {
  constexpr int kSteps = 1024;
  double last = 0.0;
  for (int i = 1; i <= kSteps; ++i) {
    const double now = (*this)(static_cast<double>(i) / kSteps);
    if (!(now >= last)) {
      return false;
    }
    last = now;
  }
  return true;
}

}  // namespace kovpanel
