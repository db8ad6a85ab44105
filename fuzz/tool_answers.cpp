// SPDX-License-Identifier: MIT
// What icclu and spotread print, against plainer second readers.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "instrument/argyll_instrument.h"
#include "instrument/icc_instrument.h"
#include "instrument/tool_process.h"

namespace {

constexpr const char* kBlanks = " \t\n\v\f\r";

bool isDecimal(const std::string& word) {
  return word.find_first_not_of("0123456789+-.eE") == std::string::npos && word[0] != '+';
}

// Decimal numbers between blanks, as long as there are any; strtod decides what they are worth.
// `complete`: nothing else follows.
std::vector<double> numbersOf(const std::string& text, bool& complete) {
  std::vector<double> numbers;
  std::size_t at = 0;
  complete = true;
  while ((at = text.find_first_not_of(kBlanks, at)) != std::string::npos) {
    const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
    const std::string word = text.substr(at, end - at);
    char* stop = nullptr;
    const double number = std::strtod(word.c_str(), &stop);
    complete = isDecimal(word) && stop == word.c_str() + word.size() && std::isfinite(number);
    if (!complete) break;
    numbers.push_back(number);
    at = end;
  }
  return numbers;
}

void checkIcclu(const std::string& text) {
  const auto read = kovctl::parseIcclu(text);
  bool complete = false;
  const std::vector<double> plain = numbersOf(text, complete);
  // A number below the smallest is zero or refused.
  const bool tiny = std::count(plain.begin(), plain.end(), 0.0) > 0;
  require(!read || (complete && plain.size() == 3), "three numbers and nothing else");
  require(read || tiny || !complete || plain.size() != 3, "three numbers");
  if (!read) return;
  for (std::size_t i = 0; i < 3; ++i) require((*read)[i] == plain[i], "a number");
}

// The three numbers behind "Result is XYZ:", up to the comma before the next colour space. `tiny`:
// one of them is below the smallest number, which is read as zero or refused.
std::optional<std::array<double, 3>> plainResult(const std::string& text, bool& tiny) {
  const std::string mark = "Result is XYZ:";
  const std::size_t at = text.find(mark);
  if (at == std::string::npos) return std::nullopt;
  const std::string behind = text.substr(at + mark.size());
  bool complete = false;
  const auto numbers = numbersOf(behind.substr(0, behind.find(',')), complete);
  if (numbers.size() < 3) return std::nullopt;
  tiny = std::count(numbers.begin(), numbers.begin() + 3, 0.0) > 0;
  return std::array<double, 3>{numbers[0], numbers[1], numbers[2]};
}

void checkSpotread(const std::string& text) {
  const auto reading = kovctl::parseSpotread(text);
  bool tiny = false;
  const auto plain = plainResult(text, tiny);
  require(plain || !reading, "a reading without a result");
  require(reading || tiny || !plain, "a result without a reading");
  if (!reading) return;
  const auto [x, y, z] = *plain;
  require(reading->luminance == y, "the luminance is the second number");
  const double sum = x + y + z;
  const auto isShare = [sum](double part) { return part / sum >= 0.0 && part / sum <= 1.0; };
  const bool isLight = sum > 0.0 && isShare(x) && isShare(y);
  require(reading->chromaticity.has_value() == isLight, "a colour of light only");
  if (!isLight) return;
  require(reading->chromaticity->x == x / sum && reading->chromaticity->y == y / sum, "a colour");
}

void checkLastLine(const std::string& text) {
  const std::string line = kovctl::lastLine(text);
  require(text.find(line) != std::string::npos, "a part of the text");
  require(line.find_first_of("\r\n") == std::string::npos, "one line");
  require(line.empty() == (text.find_first_not_of(" \t\r\n") == std::string::npos),
          "with anything");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  checkIcclu(text);
  checkSpotread(text);
  checkSpotread("Result is XYZ:" + text);
  checkLastLine(text);
  return 0;
}
