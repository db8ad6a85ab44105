// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_CHROMA_WHITE_POINT_H_
#define L5KOV_SIMULATOR_CHROMA_WHITE_POINT_H_

namespace chroma {

struct WhitePoint {
  double x;
  double y;
};

/// The range in which CIE daylight is defined, in kelvin.
inline constexpr double kLowestTemperature = 4000.0;
inline constexpr double kHighestTemperature = 25000.0;

/// The colour of CIE daylight of that temperature; false outside the range. Made by Little CMS
/// where it is there, else from the formula that it uses too.
bool daylight(double kelvin, WhitePoint& white);

}  // namespace chroma

#endif  // L5KOV_SIMULATOR_CHROMA_WHITE_POINT_H_
