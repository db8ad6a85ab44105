// SPDX-License-Identifier: MIT
#include "java/utf8.h"

#include <cstddef>

namespace lumora::kov::java {
namespace {

// Length of the sequence that `lead` begins, and the range of its second byte; RFC 3629, section 4.
struct Sequence {
  std::size_t length;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
};

Sequence sequenceOf(unsigned char lead) {
  if (lead < 0x80) return {1};
  if (lead < 0xC2) return {0};
  if (lead < 0xE0) return {2};
  if (lead == 0xE0) return {3, 0xA0, 0xBF};
  if (lead == 0xED) return {3, 0x80, 0x9F};
  if (lead < 0xF0) return {3};
  if (lead == 0xF0) return {4, 0x90, 0xBF};
  if (lead < 0xF4) return {4};
  if (lead == 0xF4) return {4, 0x80, 0x8F};
  return {0};
}

}  // namespace

bool isUtf8(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (std::size_t i = 0; i < text.size();) {
    const Sequence sequence = sequenceOf(byte(i));
    if (sequence.length == 0 || text.size() - i < sequence.length) return false;
    if (sequence.length > 1 && (byte(i + 1) < sequence.low || byte(i + 1) > sequence.high))
      return false;
    for (std::size_t k = 2; k < sequence.length; ++k) {
      if ((byte(i + k) & 0xC0) != 0x80) return false;
    }
    i += sequence.length;
  }
  return true;
}

}  // namespace lumora::kov::java
