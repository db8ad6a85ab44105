// SPDX-License-Identifier: MIT
#include "instrument/number_text.h"

#include <charconv>
#include <cmath>

namespace kovctl {
namespace {

void skipBlanks(std::string_view& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  text.remove_prefix(first == std::string_view::npos ? text.size() : first);
}

bool endsHere(std::string_view text) {
  return text.empty() || text.front() == ',' || kBlanks.find(text.front()) != kBlanks.npos;
}

}  // namespace

std::optional<std::array<double, 3>> takeThreeNumbers(std::string_view& text) {
  std::array<double, 3> result{};
  for (double& number : result) {
    skipBlanks(text);
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || !std::isfinite(number)) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    // Numbers that run into each other are none: "0.2126.0193".
    if (!endsHere(text)) return std::nullopt;
  }
  return result;
}

}  // namespace kovctl
