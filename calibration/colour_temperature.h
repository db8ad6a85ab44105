// SPDX-License-Identifier: MIT
#ifndef L5KOV_CALIBRATION_COLOUR_TEMPERATURE_H_
#define L5KOV_CALIBRATION_COLOUR_TEMPERATURE_H_

#include <cstdint>
#include <string>

namespace lumora::kov {

// CIE 1931 chromaticity.
struct Chromaticity {
  double x = 0.0;
  double y = 0.0;
};

// The number at the beginning of `text`, in the manner of std::stol with a 32-bit long: white space
// and a sign before it are accepted, what follows it is ignored.
// Throws std::invalid_argument "invalid stol argument" and std::out_of_range "stol argument out of
// range".
std::int32_t leadingLong(const std::string& text);

// The maker's colour library's answer for a temperature in kelvin.
Chromaticity chromaticityOf(std::int32_t kelvin);

}  // namespace lumora::kov

#endif  // L5KOV_CALIBRATION_COLOUR_TEMPERATURE_H_
