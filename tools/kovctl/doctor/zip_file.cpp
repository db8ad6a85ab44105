// SPDX-License-Identifier: MIT
#include "doctor/zip_file.h"

#include <cstddef>
#include <cstdint>

namespace kovctl {
namespace {

using namespace std::literals;

constexpr std::string_view kEnd = "PK\x05\x06"sv;
constexpr std::size_t kEndSize = 22;
constexpr std::string_view kEntry = "PK\x01\x02"sv;
constexpr std::size_t kEntrySize = 46;

std::uint32_t number(std::string_view file, std::size_t at, std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i > 0; --i) {
    value = value << 8U | static_cast<unsigned char>(file[at + i - 1]);
  }
  return value;
}

}  // namespace

std::optional<int> zipEntries(std::string_view file) {
  const std::size_t end = file.rfind(kEnd);
  if (end == std::string_view::npos || file.size() - end < kEndSize) return std::nullopt;
  const auto count = static_cast<int>(number(file, end + 10, 2));
  std::size_t at = number(file, end + 16, 4);
  for (int i = 0; i < count; ++i) {
    if (at + kEntrySize > end || file.substr(at, kEntry.size()) != kEntry) return std::nullopt;
    at +=
        kEntrySize + number(file, at + 28, 2) + number(file, at + 30, 2) + number(file, at + 32, 2);
  }
  return at == end ? std::optional(count) : std::nullopt;
}

}  // namespace kovctl
