// SPDX-License-Identifier: MIT
#include "output/plain_text.h"

#include <fmt/format.h>

#include <optional>

#include "system/utf8_sequence.h"

namespace kovctl {
namespace {

// The number of the character that this sequence is, where it is one that does something instead of
// showing something: each of them has three bytes at most.
std::optional<unsigned> controlIn(std::string_view sequence) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(sequence[i]); };
  unsigned number = byte(0);
  if (sequence.size() == 2) number = ((byte(0) & 0x1FU) << 6U) | (byte(1) & 0x3FU);
  if (sequence.size() == 3) {
    number = ((byte(0) & 0x0FU) << 12U) | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
  }
  const auto isFrom = [&](unsigned first, unsigned last) {
    return number >= first && number <= last;
  };
  const bool isControl = number < 0x20 || isFrom(0x7F, 0x9F);
  const bool turns = number == 0x061C || isFrom(0x200E, 0x200F) || isFrom(0x202A, 0x202E) ||
                     isFrom(0x2066, 0x2069);
  if (sequence.size() > 3 || (!isControl && !turns)) return std::nullopt;
  return number;
}

// `shown` says what stands for a control character, and for bytes that are no character (absent).
template <typename Shown>
std::string replaced(std::string_view text, Shown shown) {
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    const std::string_view sequence = text.substr(0, length == 0 ? 1 : length);
    const std::optional<unsigned> control = length == 0 ? std::nullopt : controlIn(sequence);
    if (length == 0 || control) {
      out += shown(control);
    } else {
      out += sequence;
    }
    text.remove_prefix(sequence.size());
  }
  return out;
}

}  // namespace

std::string plainLine(std::string_view text) {
  return replaced(text, [](std::optional<unsigned>) { return kReplacement; });
}

std::string plainText(std::string_view text) {
  return replaced(text, [](std::optional<unsigned> control) -> std::string_view {
    return control == unsigned{'\n'} ? "\n" : control == unsigned{'\t'} ? "\t" : kReplacement;
  });
}

std::string plainJson(std::string_view json) {
  return replaced(json, [](std::optional<unsigned> control) {
    return control ? fmt::format("\\u{:04x}", *control) : std::string(kReplacement);
  });
}

}  // namespace kovctl
