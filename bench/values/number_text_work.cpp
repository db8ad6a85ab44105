// SPDX-License-Identifier: MIT
// Numbers to text and back, beside the printf and strtod road by hand: the same results in every
// locale, written with what the C library offers.
#include <pocketjson/value.h>

#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/support/measured.h"

namespace {

using bench::measure;
using pocketjson::Value;

// Each measurement takes all eight.
constexpr double kNumbers[] = {0.1, 250.0, 0.34129999999999999, 1.0 / 3.0, 6.02214076e23,
                               -273.15, 1e-5, 331.98765432109876};

std::string printed(double number) {
  if (number == 0.0) return "0.0";
  if (std::isnan(number)) return "nan";
  if (std::isinf(number)) return number < 0 ? "-inf" : "inf";
  char buffer[128] = {};
  const int length = std::snprintf(buffer, sizeof buffer, "%.17g", number);
  const char point = *std::localeconv()->decimal_point;
  std::string text;
  for (int i = 0; i < length; ++i) text += buffer[i] == point ? '.' : buffer[i];
  return text;
}

double scanned(const char* text, double otherwise) {
  std::string copy = text;
  const std::size_t point = copy.find('.');
  if (point != std::string::npos) copy[point] = *std::localeconv()->decimal_point;
  char* end = nullptr;
  const double number = std::strtod(copy.c_str(), &end);
  return *end == '\0' ? number : otherwise;
}

void doubleToText(benchmark::State& state) {
  std::vector<Value> values(std::begin(kNumbers), std::end(kNumbers));
  measure(state, [&] {
    std::size_t letters = 0;
    for (const Value& value : values) letters += value.asString().size();
    return letters;
  });
}

void doubleToTextByHand(benchmark::State& state) {
  measure(state, [&] {
    std::size_t letters = 0;
    for (const double number : kNumbers) letters += printed(number).size();
    return letters;
  });
}

void textToDouble(benchmark::State& state) {
  std::vector<Value> values;
  for (const double number : kNumbers) values.emplace_back(printed(number));
  measure(state, [&] {
    double sum = 0.0;
    for (const Value& value : values) sum += value.asDouble();
    return sum;
  });
}

void textToDoubleByHand(benchmark::State& state) {
  std::vector<std::string> texts;
  for (const double number : kNumbers) texts.push_back(printed(number));
  measure(state, [&] {
    double sum = 0.0;
    for (const std::string& text : texts) sum += scanned(text.c_str(), 0.0);
    return sum;
  });
}

}  // namespace

BENCHMARK(doubleToText)->Name("double_to_text/pocketjson");
BENCHMARK(doubleToTextByHand)->Name("double_to_text/by_hand");
BENCHMARK(textToDouble)->Name("text_to_double/pocketjson");
BENCHMARK(textToDoubleByHand)->Name("text_to_double/by_hand");
