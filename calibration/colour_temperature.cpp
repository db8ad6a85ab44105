// SPDX-License-Identifier: MIT
#include "calibration/colour_temperature.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "platform/vendor.h"

namespace lumora::kov {
namespace {

// Hosts show these texts; they are the same on every system, whatever its standard library says.
constexpr const char* kInvalid = "invalid stol argument";
constexpr const char* kOutOfRange = "stol argument out of range";

constexpr std::size_t kInputBytes = 144;
constexpr std::size_t kKelvinAt = 96;
constexpr std::size_t kXAt = 80;
constexpr std::size_t kYAt = 88;
// The length of the output record is the maker's own affair; this leaves it ample room.
constexpr std::size_t kOutputBytes = 1024;

}  // namespace

std::int32_t leadingLong(const std::string& text) {
  char* end = nullptr;
  const int errnoBefore = errno;
  errno = 0;
  const long long value = std::strtoll(text.c_str(), &end, 10);
  const bool overflow = errno == ERANGE;
  errno = errnoBefore;
  if (end == text.c_str()) throw std::invalid_argument(kInvalid);
  if (overflow || value < std::numeric_limits<std::int32_t>::min() ||
      value > std::numeric_limits<std::int32_t>::max()) {
    throw std::out_of_range(kOutOfRange);
  }
  return static_cast<std::int32_t>(value);
}

Chromaticity chromaticityOf(std::int32_t kelvin) {
  alignas(std::max_align_t) std::array<unsigned char, kInputBytes> in{};
  alignas(std::max_align_t) std::array<unsigned char, kOutputBytes> out{};
  std::memcpy(in.data() + kKelvinAt, &kelvin, sizeof kelvin);
  Colour_tmp2xy(out.data(), in.data());  // Kept: the result is not examined
  Chromaticity result;
  std::memcpy(&result.x, out.data() + kXAt, sizeof result.x);
  std::memcpy(&result.y, out.data() + kYAt, sizeof result.y);
  return result;
}

}  // namespace lumora::kov
