// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "colour_tmp2xy.h"
#include "white_point.h"

namespace {

constexpr std::size_t kTemperatureOffset = 96;
constexpr std::size_t kXOffset = 80;
constexpr std::size_t kYOffset = 88;

// The records carry no promise of alignment, so their fields are copied.
std::int32_t temperatureIn(const void* record) {
  std::int32_t kelvin = 0;
  std::memcpy(&kelvin, static_cast<const unsigned char*>(record) + kTemperatureOffset,
              sizeof kelvin);
  return kelvin;
}

void store(void* record, std::size_t offset, double value) {
  std::memcpy(static_cast<unsigned char*>(record) + offset, &value, sizeof value);
}

}  // namespace

int Colour_tmp2xy(void* out, const void* in) {
  if (out == nullptr || in == nullptr) {
    return COLOUR_BAD_ARGUMENT;
  }
  const double asked = temperatureIn(in);
  const double kelvin = std::clamp(asked, chroma::kLowestTemperature, chroma::kHighestTemperature);
  chroma::WhitePoint white{};
  if (!chroma::daylight(kelvin, white)) {
    return COLOUR_BAD_ARGUMENT;
  }
  store(out, kXOffset, white.x);
  store(out, kYOffset, white.y);
  return kelvin == asked ? COLOUR_OK : COLOUR_CLAMPED;
}
