// SPDX-License-Identifier: MIT
#include "pocketjson/scalar_text.h"

#include <cfenv>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <system_error>

namespace pocketjson {

namespace {

// Holds any "%.17g" (24 bytes at most) and any 64-bit number.
constexpr std::size_t kNumberSpace = 128;

// Only the first byte of the locale's decimal point counts, in either direction.
char decimalPoint() noexcept {
  const char* point = std::localeconv()->decimal_point;
  return point != nullptr && *point != '\0' ? *point : '.';
}

// <charconv> rounds to nearest; the C functions follow the rounding mode that the host has set.
bool roundsToNearest() noexcept { return std::fegetround() == FE_TONEAREST; }

void printDouble(double number, std::string& text) {
  char space[kNumberSpace] = {};
  const int length = std::snprintf(space, sizeof space, "%.17g", number);
  const char point = decimalPoint();
  for (int i = 0; i < length; ++i) text += space[i] == point ? '.' : space[i];
}

// Texts on which from_chars and strtod agree bit by bit: they begin with a digit or the point and
// are plain decimal numbers to their end. (Blanks, "+", hexadecimal, "inf", "nan" and numbers out
// of range are strtod's alone.)
bool readPlain(const char* text, double& number) noexcept {
  const char* digits = *text == '-' ? text + 1 : text;
  if (*digits != '.' && (*digits < '0' || *digits > '9')) return false;
  const char* end = text + std::strlen(text);
  const auto [stop, error] = std::from_chars(text, end, number);
  return error == std::errc() && stop == end;
}

double readWithLocale(const char* text, bool& consumed) {
  char* stop = nullptr;
  const char* point = std::strchr(text, '.');
  if (point == nullptr || decimalPoint() == '.') {
    const double number = std::strtod(text, &stop);
    consumed = *stop == '\0';
    return number;
  }
  std::string copy = text;
  copy[static_cast<std::size_t>(point - text)] = decimalPoint();
  const double number = std::strtod(copy.c_str(), &stop);
  consumed = *stop == '\0';
  return number;
}

}  // namespace

bool formatDouble(double number, std::string& text) {
  if (number == 0.0) {
    // Kept: the sign of a negative zero is dropped, and zero alone has a fraction.
    text += "0.0";
    return true;
  }
  if (std::isnan(number)) {
    text += "nan";
    return false;
  }
  if (std::isinf(number)) {
    text += number < 0 ? "-inf" : "inf";
    return false;
  }
  if (!roundsToNearest()) {
    printDouble(number, text);
    return true;
  }
  char space[kNumberSpace];
  const auto [end, error] =
      std::to_chars(std::begin(space), std::end(space), number, std::chars_format::general, 17);
  if (error == std::errc()) text.append(space, end);
  return true;
}

std::string formatInt(std::int64_t number) {
  char space[kNumberSpace];
  return std::string(space, std::to_chars(std::begin(space), std::end(space), number).ptr);
}

double parseDouble(const char* text, bool& consumed) {
  double number = 0.0;
  if (roundsToNearest() && readPlain(text, number)) {
    consumed = true;
    return number;
  }
  return readWithLocale(text, consumed);
}

std::int32_t parseInt(const char* text) noexcept {
  const char* digits = text + std::strspn(text, " \t\n\v\f\r");
  if (*digits == '+' || *digits == '-') ++digits;
  // Newer C libraries read binary numbers too. They stay no numbers here, on every system.
  if (digits[0] == '0' && (digits[1] == 'b' || digits[1] == 'B')) return 0;

  char* stop = nullptr;
  const long long number = std::strtoll(text, &stop, 0);
  const bool fits = number >= kSmallestInt && number <= kLargestInt;
  return *stop == '\0' && fits ? static_cast<std::int32_t>(number) : 0;
}

}  // namespace pocketjson
