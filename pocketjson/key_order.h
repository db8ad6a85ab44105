// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_KEY_ORDER_H_
#define L5KOV_POCKETJSON_KEY_ORDER_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

// Comparing short keys without calling out: most differ within their first eight bytes
// ("LmaxValue", "LminValue", "IsUsedLamb", "IsUsedMeasurementLmin"), which compare as one number.

namespace pocketjson {

inline constexpr std::size_t kFrontBytes = 8;

/// Eight bytes as a number that orders as they do. Written out, compilers make a load and a swap of
/// it.
inline std::uint64_t eightBytes(const char* text) noexcept {
  const auto byte = [&](std::size_t i) {
    return std::uint64_t{static_cast<unsigned char>(text[i])};
  };
  return byte(0) << 56 | byte(1) << 48 | byte(2) << 40 | byte(3) << 32 | byte(4) << 24 |
         byte(5) << 16 | byte(6) << 8 | byte(7);
}

/// The first eight bytes; a shorter key counts as followed by zeros.
inline std::uint64_t frontOf(std::string_view key) noexcept {
  if (key.size() >= kFrontBytes) return eightBytes(key.data());
  char padded[kFrontBytes] = {};
  for (std::size_t i = 0; i < key.size(); ++i) padded[i] = key[i];
  return eightBytes(padded);
}

/// Whether two keys with equal fronts are the same. The last eight bytes come first: names that
/// begin alike mostly end differently.
inline bool sameRest(std::string_view left, std::string_view right) noexcept {
  const std::size_t length = left.size();
  if (length != right.size()) return false;
  if (length <= kFrontBytes) return true;
  const std::size_t last = length - kFrontBytes;
  if (eightBytes(left.data() + last) != eightBytes(right.data() + last)) return false;
  for (std::size_t at = kFrontBytes; at < last; at += kFrontBytes) {
    if (eightBytes(left.data() + at) != eightBytes(right.data() + at)) return false;
  }
  return true;
}

/// The order of two different keys with equal fronts: bytes as unsigned numbers; on a common
/// beginning the shorter key comes first. Compiled apart, so that the common road, which is a few
/// instructions a level of the tree, keeps its registers.
bool differentRestBefore(std::string_view left, std::string_view right) noexcept;

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_KEY_ORDER_H_
