// SPDX-License-Identifier: MIT
// What icclu and spotread print, against plainer second readers.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
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

void checkSpotread(const std::string& text) {
  const auto reading = kovctl::parseSpotread(text);
  const bool hasResult = text.find("Result is XYZ:") != std::string::npos;
  require(hasResult || !reading, "a reading without a result");
  if (!reading) return;
  require(std::isfinite(reading->luminance), "a luminance");
  if (!reading->chromaticity) return;
  require(std::isfinite(reading->chromaticity->x) && std::isfinite(reading->chromaticity->y) &&
              reading->chromaticity->x >= 0.0 && reading->chromaticity->y >= 0.0,
          "a colour");
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
