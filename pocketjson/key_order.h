// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_KEY_ORDER_H_
#define L5KOV_POCKETJSON_KEY_ORDER_H_

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

// Comparing short keys without calling out: most differ in their first byte, and those that share
// a beginning ("IsUsedLamb", "IsUsedMeasurementLmin") differ within the next eight.

namespace pocketjson {

inline std::uint64_t eightBytes(const char* text) noexcept {
  std::uint64_t word;
  std::memcpy(&word, text, sizeof word);
  return word;
}

/// The place of the first byte in which the two differ; `length` if there is none before it.
inline std::size_t firstDifference(const char* left, const char* right,
                                   std::size_t length) noexcept {
  std::size_t at = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; at + 8 <= length; at += 8) {
      const std::uint64_t difference = eightBytes(left + at) ^ eightBytes(right + at);
      if (difference != 0) return at + static_cast<std::size_t>(std::countr_zero(difference)) / 8;
    }
  }
  while (at < length && left[at] == right[at]) ++at;
  return at;
}

/// Bytes as unsigned numbers; on a common beginning the shorter key comes first.
inline bool keyBefore(std::string_view left, std::string_view right) noexcept {
  const std::size_t common = left.size() < right.size() ? left.size() : right.size();
  if (common != 0 && left[0] != right[0]) {
    return static_cast<unsigned char>(left[0]) < static_cast<unsigned char>(right[0]);
  }
  const std::size_t at = firstDifference(left.data(), right.data(), common);
  if (at == common) return left.size() < right.size();
  return static_cast<unsigned char>(left[at]) < static_cast<unsigned char>(right[at]);
}

inline bool sameKey(std::string_view left, std::string_view right) noexcept {
  return left.size() == right.size() &&
         firstDifference(left.data(), right.data(), left.size()) == left.size();
}

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_KEY_ORDER_H_
