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

inline std::uint64_t fourBytes(const char* text) noexcept {
  const auto byte = [&](std::size_t i) {
    return std::uint64_t{static_cast<unsigned char>(text[i])};
  };
  return byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3);
}

/// The first eight bytes; a shorter key counts as followed by zeros.
inline std::uint64_t frontOf(std::string_view key) noexcept {
  const std::size_t size = key.size();
  if (size >= kFrontBytes) [[likely]] return eightBytes(key.data());
  const auto missing = 8 * (kFrontBytes - size);  // bits
  // The two ends overlap, or meet, where both have the same bytes.
  if (size >= 4) return fourBytes(key.data()) << 32 | fourBytes(key.data() + size - 4) << missing;
  if (size == 0) return 0;
  const auto at = [&](std::size_t i) {
    return std::uint64_t{static_cast<unsigned char>(key[i])} << (56 - 8 * i);
  };
  return at(0) | at(size / 2) | at(size - 1);
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

/// The order of two keys with equal fronts: bytes as unsigned numbers; on a common beginning the
/// shorter key comes first.
inline bool restBefore(std::string_view left, std::string_view right) noexcept {
  const std::size_t common = left.size() < right.size() ? left.size() : right.size();
  // Of keys with equal fronts, one that is shorter than a front is the beginning of the other.
  for (std::size_t at = kFrontBytes; at < common; at += kFrontBytes) {
    // The last step goes back into what has been found equal, so that it reads no byte too many.
    const std::size_t from = at + kFrontBytes <= common ? at : common - kFrontBytes;
    const std::uint64_t leftBytes = eightBytes(left.data() + from);
    const std::uint64_t rightBytes = eightBytes(right.data() + from);
    if (leftBytes != rightBytes) return leftBytes < rightBytes;
  }
  return left.size() < right.size();
}

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_KEY_ORDER_H_
