// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_PANEL_COLOUR_H_
#define L5KOV_SIMULATOR_PANEL_COLOUR_H_

#include <array>

namespace kovpanel {

/// CIE 1931 tristimulus values; Y in cd/m². Light adds.
struct Xyz {
  double X = 0.0;
  double Y = 0.0;
  double Z = 0.0;

  Xyz& operator+=(const Xyz& other);
  Xyz operator-(const Xyz& other) const;
  Xyz operator*(double factor) const;
};

struct Chromaticity {
  double x = 0.0;
  double y = 0.0;
};

/// Whether the point lies inside the triangle x > 0, y > 0, x + y < 1.
bool isChromaticity(Chromaticity colour);

Xyz fromLuminance(Chromaticity colour, double luminance);

/// The colour of a light; the given one where there is no light.
Chromaticity chromaticityOf(const Xyz& light, Chromaticity ifDark);

/// The luminances at which three primaries mix to `sum`. False when they lie on one line or when
/// one of them would have to take light away.
bool mix(const std::array<Chromaticity, 3>& primaries, const Xyz& sum, std::array<Xyz, 3>& parts);

}  // namespace kovpanel

#endif  // L5KOV_SIMULATOR_PANEL_COLOUR_H_
