// SPDX-License-Identifier: MIT
// Number texts against the C library: strtod, strtoll and printf. The first eight bytes are a
// double and an integer to print; the rest is a text to read.
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "fuzz/plain_conversions.h"
#include "fuzz/require.h"
#include "pocketjson/scalar_text.h"
#include "pocketjson/value.h"

namespace {

using pocketjson::Value;

void checkPrinting(double number) {
  const std::string text = Value(number).asString();
  require(text == plain::textOf(number), "printing");
  require(plain::same(Value(text).asDouble(), number == 0.0 ? 0.0 : number),
          "reading what was printed");
}

void checkPrinting(long long number) {
  const std::string text = Value(number).asString();
  require(text == plain::textOf(number), "printing an integer");
  const int low = static_cast<std::int32_t>(number & 0xffffffff);
  char wanted[64];
  std::snprintf(wanted, sizeof wanted, "%d", low);
  require(Value(low).asString() == wanted, "printing a short integer");
  require(Value(wanted).asInt(1) == low, "reading the short integer that was printed");
  require(Value(text).asInt(1) == plain::narrowed(number, 0), "reading the integer");
}

void checkReading(const std::string& bytes) {
  const char* text = bytes.c_str();  // ends at the first NUL
  bool consumed = false;
  const double number = pocketjson::parseDouble(text, consumed);
  const auto wanted = plain::doubleIn(text);
  require(consumed == wanted.has_value(), "how far a double reaches");
  if (consumed) require(plain::same(number, *wanted), "a double");
  require(pocketjson::parseInt(text) == plain::intIn(text), "an integer");

  // The same from a value. A text that goes on behind its number is no double but the default,
  // and no integer but 0, whatever the default.
  const Value value(bytes);
  for (const double byDefault : {0.0, 41.5}) {
    require(plain::same(value.asDouble(byDefault), wanted.value_or(byDefault)), "as a double");
  }
  for (const int byDefault : {0, 41}) {
    require(value.asInt(byDefault) == plain::intIn(text), "as an integer");
  }
  require(value.asBool(true) == (bytes == "true"), "as a truth");
  require(value.asString("41") == bytes, "as a text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  double number = 0.0;
  if (size >= sizeof number) {
    std::int64_t integer = 0;
    std::memcpy(&number, data, sizeof number);
    std::memcpy(&integer, data, sizeof integer);
    data += sizeof number;
    size -= sizeof number;
    checkPrinting(number);
    checkPrinting(static_cast<long long>(integer));
  }
  checkReading(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
