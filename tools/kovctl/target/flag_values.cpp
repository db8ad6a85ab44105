// SPDX-License-Identifier: MIT
#include "target/flag_values.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <optional>

#include "failure.h"
#include "record/display_functions.h"
#include "record/run_record_json.h"

namespace kovctl {
namespace {

template <typename Number>
std::optional<Number> parse(const std::string& text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

}  // namespace

double numberFlag(const std::string& option, const std::string& text, double lowest,
                  double highest) {
  const auto number = parse<double>(text);
  if (!number || !std::isfinite(*number) || *number < lowest || *number > highest) {
    throw Failure(ExitCode::kUsage, fmt::format("{} {}: a number from {:g} to {:g} is needed",
                                                option, text, lowest, highest));
  }
  return *number;
}

int integerFlag(const std::string& option, const std::string& text, int lowest, int highest) {
  const auto number = parse<int>(text);
  if (!number || *number < lowest || *number > highest) {
    throw Failure(ExitCode::kUsage, fmt::format("{} {}: a whole number from {} to {} is needed",
                                                option, text, lowest, highest));
  }
  return *number;
}

int levelsFlag(const std::string& option, const std::string& text) {
  constexpr int kFewest = 3;
  constexpr int kMost = 256;
  const auto number = parse<int>(text);
  if (!number || *number < 0 || (*number > 0 && *number < kFewest) || *number > kMost) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{} {}: 0 or a whole number from {} to {} is needed", option, text,
                              kFewest, kMost));
  }
  return *number;
}

int kelvinFlag(const std::string& option, const std::string& text) {
  constexpr int kColdest = 1000;
  constexpr int kHottest = 100000;
  const auto number = parse<int>(text.substr(1));
  if (!number || *number < kColdest || *number > kHottest) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{} {}: K and a whole number from {} to {} is needed, such as K6500",
                              option, text, kColdest, kHottest));
  }
  return *number;
}

Chromaticity chromaticityFlag(const std::string& option, const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{} {}: K6500, x,y or off is needed", option, text));
  }
  const Chromaticity colour{numberFlag(option, text.substr(0, comma), 0.0, 1.0),
                            numberFlag(option, text.substr(comma + 1), 0.001, 1.0)};
  if (colour.x + colour.y > 1.0) {
    throw Failure(ExitCode::kUsage, fmt::format("{} {}: x and y exceed 1 together", option, text));
  }
  return colour;
}

DisplayFunction functionFlag(const std::string& text) {
  for (const DisplayFunctionNames& name : displayFunctions()) {
    const bool needsExponent = name.function == DisplayFunction::kExp;
    if (needsExponent) continue;
    if (text == name.flag || text == nameOf(name.function)) return name.function;
  }
  throw Failure(
      ExitCode::kUsage,
      fmt::format("--function {}: dicom, cie, gamma:EXPONENT, loglinear, linear, native or "
                  "user is needed",
                  text));
}

}  // namespace kovctl
