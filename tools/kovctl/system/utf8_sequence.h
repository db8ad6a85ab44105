// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_SYSTEM_UTF8_SEQUENCE_H_
#define L5KOV_TOOLS_KOVCTL_SYSTEM_UTF8_SEQUENCE_H_

#include <cstddef>
#include <string_view>

namespace kovctl {

/// U+FFFD, for what cannot be shown.
inline constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// The length of the UTF-8 sequence at the start of `text`, which is not empty, or 0 when there is
/// none. Overlong forms, surrogates and numbers beyond U+10FFFF are none.
inline std::size_t sequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  const unsigned char second = byte(1);
  if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F)) return 0;
  if ((first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F)) return 0;
  return length;
}

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_SYSTEM_UTF8_SEQUENCE_H_
