// SPDX-License-Identifier: MIT
// Conversions of a value to the plain types.
#include <cmath>

#include "pocketjson/container.h"
#include "pocketjson/scalar_text.h"

namespace pocketjson {
namespace {

// Halves away from zero. Not std::round: mingw's makes 1 of the greatest number below 0.5. The
// difference is exact; that of an infinity is no number, so it stays one.
double roundHalvesAway(double number) noexcept {
  const double whole = std::trunc(number);
  return std::fabs(number - whole) >= 0.5 ? whole + std::copysign(1.0, number) : whole;
}

}  // namespace

bool Value::asBool(bool byDefault) const noexcept {
  switch (tag) {
    case Bool:
      return payload.truth;
    case Int:
      return payload.integer != 0;
    case Double:
      return payload.real != 0.0;
    case String:
      // Kept: any other text is false, whatever the default.
      return held<std::string>() == "true";
    default:
      return byDefault;
  }
}

int Value::asInt(int byDefault) const noexcept {
  switch (tag) {
    case Bool:
      return payload.truth ? 1 : 0;
    case Int:
      return payload.integer >= kSmallestInt && payload.integer <= kLargestInt
                 ? static_cast<int>(payload.integer)
                 : byDefault;
    case Double: {
      const double rounded = roundHalvesAway(payload.real);
      return rounded >= kSmallestInt && rounded <= kLargestInt ? static_cast<int>(rounded)
                                                               : byDefault;
    }
    case String:
      // Kept: a text that is no number in range gives 0, not the default.
      return parseInt(held<std::string>().c_str());
    default:
      return byDefault;
  }
}

double Value::asDouble(double byDefault) const {
  switch (tag) {
    case Bool:
      return payload.truth ? 1.0 : 0.0;
    case Int:
      return static_cast<double>(payload.integer);
    case Double:
      return payload.real;
    case String: {
      bool consumed = false;
      const double number = parseDouble(held<std::string>().c_str(), consumed);
      return consumed ? number : byDefault;
    }
    default:
      return byDefault;
  }
}

std::string Value::asString(const std::string& byDefault) const {
  switch (tag) {
    case Bool:
      return payload.truth ? "true" : "false";
    case Int:
      return formatInt(payload.integer);
    case Double: {
      std::string text;
      formatDouble(payload.real, text);
      return text;
    }
    case String:
      return held<std::string>();
    default:
      return byDefault;
  }
}

}  // namespace pocketjson
