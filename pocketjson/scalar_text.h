// SPDX-License-Identifier: MIT
#ifndef L5KOV_POCKETJSON_SCALAR_TEXT_H_
#define L5KOV_POCKETJSON_SCALAR_TEXT_H_

#include <cstdint>
#include <string>

// Single numbers to text and back, with "." as the decimal point whatever locale the host has set.
// None of these throws for bad input.
//
// Kept: texts to read are C texts. Of a text with a NUL byte inside only what lies before it is
// seen, and may well be "the whole text".

namespace pocketjson {

/// The range of asInt(), on systems with any width of int.
inline constexpr std::int32_t kSmallestInt = INT32_MIN;
inline constexpr std::int32_t kLargestInt = INT32_MAX;

/// Appends the bytes of printf("%.17g") in the C locale, but "0.0" for both zeros and "nan", "inf",
/// "-inf". False for the last three.
bool formatDouble(double number, std::string& text);

/// Decimal digits, with "-" before negative numbers.
std::string formatInt(std::int64_t number);

/// What strtod() reads in the host's locale once the first "." is the locale's decimal point.
/// `consumed` is set when that is the whole text, which the empty one (0.0) is.
double parseDouble(const char* text, bool& consumed);

/// What strtoll() reads with base 0 (leading blanks, a sign, 0x for hexadecimal, 0 for octal) if
/// that is the whole text and fits into 32 bits; otherwise 0.
std::int32_t parseInt(const char* text) noexcept;

}  // namespace pocketjson

#endif  // L5KOV_POCKETJSON_SCALAR_TEXT_H_
