// SPDX-License-Identifier: MIT
// Number texts against the C library: strtod, strtoll and printf. The first eight bytes are a
// double to print; the rest is a text to read.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "fuzz/require.h"
#include "pocketjson/scalar_text.h"
#include "pocketjson/value.h"

namespace {

bool same(double a, double b) {
  return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

void checkPrinting(double number) {
  const std::string text = pocketjson::Value(number).asString();
  char wanted[64];
  std::snprintf(wanted, sizeof wanted, "%.17g", number);
  if (number == 0.0) std::strcpy(wanted, "0.0");
  if (std::isnan(number)) std::strcpy(wanted, "nan");
  require(text == wanted, "printing");
  require(
      same(pocketjson::Value(text).asDouble(), number == 0.0 ? 0.0 : number) || std::isnan(number),
      "reading what was printed");
}

void checkReading(const std::string& text) {
  bool consumed = false;
  const double number = pocketjson::parseDouble(text.c_str(), consumed);
  char* stop = nullptr;
  const double wanted = std::strtod(text.c_str(), &stop);
  require(consumed == (*stop == '\0'), "how far a double reaches");
  if (consumed) require(same(number, wanted), "a double");

  const long long integer = std::strtoll(text.c_str(), &stop, 0);
  const char* digits = text.c_str() + std::strspn(text.c_str(), " \t\n\v\f\r");
  digits += *digits == '+' || *digits == '-';
  const bool binary = digits[0] == '0' && (digits[1] == 'b' || digits[1] == 'B');
  const bool fits = *stop == '\0' && integer >= INT32_MIN && integer <= INT32_MAX && !binary;
  require(pocketjson::parseInt(text.c_str()) == (fits ? integer : 0), "an integer");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double number = 0.0;
  if (size >= sizeof number) {
    std::memcpy(&number, data, sizeof number);
    data += sizeof number;
    size -= sizeof number;
    checkPrinting(number);
  }
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  checkReading(bytes.c_str());  // ends at the first NUL
  return 0;
}
