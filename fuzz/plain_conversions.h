// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_PLAIN_CONVERSIONS_H_
#define L5KOV_FUZZ_PLAIN_CONVERSIONS_H_

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

// Numbers and texts by the C library alone, to compare the library's own conversions with.
namespace plain {

inline bool same(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

inline std::string textOf(double number) {
  if (number == 0.0) return "0.0";
  if (std::isnan(number)) return "nan";
  char space[64];
  std::snprintf(space, sizeof space, "%.17g", number);
  return space;
}

inline std::string textOf(long long number) {
  char space[64];
  std::snprintf(space, sizeof space, "%lld", number);
  return space;
}

// Nothing where the text goes on behind the number.
inline std::optional<double> doubleIn(const char* text) {
  char* stop = nullptr;
  const double number = std::strtod(text, &stop);
  return *stop == '\0' ? std::optional<double>(number) : std::nullopt;
}

// 0 where the text goes on behind the number, or the number has more than 32 bits. Newer C
// libraries take "0b1" for one; it is to be none.
inline int intIn(const char* text) {
  const char* digits = text + std::strspn(text, " \t\n\v\f\r");
  digits += *digits == '+' || *digits == '-';
  if (digits[0] == '0' && (digits[1] == 'b' || digits[1] == 'B')) return 0;
  char* stop = nullptr;
  const long long number = std::strtoll(text, &stop, 0);
  const bool fits = *stop == '\0' && number >= INT32_MIN && number <= INT32_MAX;
  return fits ? static_cast<int>(number) : 0;
}

inline int rounded(double number, int byDefault) {
  const double whole = std::round(number);
  return whole >= INT32_MIN && whole <= INT32_MAX ? static_cast<int>(whole) : byDefault;
}

inline int narrowed(long long number, int byDefault) {
  return number >= INT32_MIN && number <= INT32_MAX ? static_cast<int>(number) : byDefault;
}

}  // namespace plain

#endif  // L5KOV_FUZZ_PLAIN_CONVERSIONS_H_
