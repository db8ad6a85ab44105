// SPDX-License-Identifier: MIT
#include "colour.h"

#include <cmath>
#include <cstddef>

namespace kovpanel {
namespace {

double determinant(const Xyz& a, const Xyz& b, const Xyz& c) {
  return a.X * (b.Y * c.Z - b.Z * c.Y) - a.Y * (b.X * c.Z - b.Z * c.X) +
         a.Z * (b.X * c.Y - b.Y * c.X);
}

}  // namespace

Xyz& Xyz::operator+=(const Xyz& other) {
  X += other.X;
  Y += other.Y;
  Z += other.Z;
  return *this;
}

Xyz Xyz::operator-(const Xyz& other) const { return {X - other.X, Y - other.Y, Z - other.Z}; }

Xyz Xyz::operator*(double factor) const { return {X * factor, Y * factor, Z * factor}; }

bool isChromaticity(Chromaticity colour) {
  return colour.x > 0.0 && colour.y > 0.0 && colour.x + colour.y < 1.0;
}

Xyz fromLuminance(Chromaticity colour, double luminance) {
  const double scale = luminance / colour.y;
  return {colour.x * scale, luminance, (1.0 - colour.x - colour.y) * scale};
}

Chromaticity chromaticityOf(const Xyz& light, Chromaticity ifDark) {
  const double sum = light.X + light.Y + light.Z;
  if (!(sum > 0.0)) {
    return ifDark;
  }
  return {light.X / sum, light.Y / sum};
}

bool mix(const std::array<Chromaticity, 3>& primaries, const Xyz& sum, std::array<Xyz, 3>& parts) {
  std::array<Xyz, 3> unit;
  for (std::size_t i = 0; i < 3; ++i) {
    unit[i] = fromLuminance(primaries[i], 1.0);
  }
  // Cramer's rule: three equations, one per tristimulus value.
  const double whole = determinant(unit[0], unit[1], unit[2]);
  if (std::abs(whole) < 1e-9) {
    return false;
  }
  const std::array<double, 3> share = {determinant(sum, unit[1], unit[2]) / whole,
                                       determinant(unit[0], sum, unit[2]) / whole,
                                       determinant(unit[0], unit[1], sum) / whole};
  for (std::size_t i = 0; i < 3; ++i) {
    if (!(share[i] > 0.0)) {
      return false;
    }
    parts[i] = unit[i] * share[i];
  }
  return true;
}

}  // namespace kovpanel
