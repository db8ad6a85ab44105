// SPDX-License-Identifier: MIT
// <charconv> serves most numbers. Here it is held against the C functions on a seeded million each.
#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "foreign_locale.h"
#include "pocketjson/scalar_text.h"

namespace {

constexpr int kMillion = 1000000;

class Numbers {
 public:
  explicit Numbers(std::uint64_t seed) : random(seed) {}

  std::size_t pick(std::size_t count) { return random() % count; }

  // Any finite double but zero; bit patterns, decimals as people write them, and halves of a digit.
  double real() {
    double number = 0.0;
    do {
      switch (pick(4)) {
        case 0:
          number = static_cast<double>(static_cast<std::int64_t>(pick(2000001)) - 1000000) / 1000;
          break;
        case 1:
          number = static_cast<double>(random() >> pick(60)) + 0.5;
          break;
        case 2:
          number =
              std::ldexp(static_cast<double>(random() | 1), static_cast<int>(pick(2200)) - 1150);
          break;
        default:
          number = std::bit_cast<double>(random());
      }
    } while (!std::isfinite(number) || number == 0.0);
    return number;
  }

  std::string digits(std::size_t most) {
    std::string text(pick(most + 1), '0');
    for (char& digit : text) digit = static_cast<char>('0' + pick(10));
    return text;
  }

  // Mostly numbers in all spellings, often with something that does not belong there.
  std::string text() {
    std::string text;
    if (pick(20) == 0) text += oneOf({" ", "\t", "\n ", "+", "--", "x"});
    if (pick(3) == 0) text += '-';
    switch (pick(8)) {
      case 0:
      case 1:
        text += printed("%.17g");
        break;
      case 2:
        text += printed("%.15g");
        break;
      case 3:
        text += printed("%a");
        break;
      case 4:
        text += oneOf({"inf", "nan", "infinity", "NAN(1)", "0x", "0x1.8p3", "1e400", "1e-400", ""});
        break;
      default:
        text += digits(40) + oneOf({"", ".", ".", ","}) + digits(40);
        if (pick(2) == 0) text += oneOf({"e", "E", "e+", "e-"}) + digits(3);
    }
    if (pick(20) == 0) text += oneOf({" ", "x", ".", ",", "e", "f", "1", ".5"});
    return text;
  }

 private:
  std::string oneOf(std::initializer_list<const char*> choices) {
    return choices.begin()[pick(choices.size())];
  }

  std::string printed(const char* pattern) {
    char space[64];
    std::snprintf(space, sizeof space, pattern, std::fabs(real()));
    std::string text = space;
    const std::size_t comma = text.find(',');  // of the locale
    if (comma != std::string::npos && pick(4) != 0) text[comma] = '.';
    return text;
  }

  std::mt19937_64 random;
};

// The road without shortcuts.
double readPlainly(const std::string& text, bool& consumed) {
  std::string copy = text.c_str();
  const std::size_t point = copy.find('.');
  if (point != std::string::npos) copy[point] = *std::localeconv()->decimal_point;
  char* stop = nullptr;
  const double number = std::strtod(copy.c_str(), &stop);
  consumed = stop == copy.c_str() + copy.size();
  return number;
}

// Holds a million texts against that road; how many of them were numbers.
int compareParsing(std::uint64_t seed) {
  Numbers numbers(seed);
  int consumedCount = 0;
  for (int i = 0; i < kMillion; ++i) {
    const std::string text = numbers.text();
    bool consumed = false;
    bool consumedPlainly = false;
    const double number = pocketjson::parseDouble(text.c_str(), consumed);
    const double expected = readPlainly(text, consumedPlainly);
    EXPECT_EQ(consumed, consumedPlainly) << text;
    if (consumed) {
      ++consumedCount;
      EXPECT_TRUE(std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(expected) ||
                  (std::isnan(number) && std::isnan(expected)))
          << text;
    }
    if (testing::Test::HasFailure()) break;
  }
  return consumedCount;
}

void compareFormatting(std::uint64_t seed, char point) {
  Numbers numbers(seed);
  std::string text;
  for (int i = 0; i < kMillion; ++i) {
    const double number = numbers.real();
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.17g", number);
    for (char& byte : expected) {
      if (byte == point) byte = '.';
    }
    text.clear();
    ASSERT_TRUE(pocketjson::formatDouble(number, text));
    ASSERT_EQ(text, expected);
  }
}

TEST(ScalarTextDifferential, AMillionDoublesPrintLikePrintf) { compareFormatting(1, '.'); }

TEST(ScalarTextDifferential, AMillionDoublesPrintLikePrintfUnderACommaLocale) {
  const ForeignLocale locale(ForeignLocale::kComma);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  compareFormatting(2, ',');
}

TEST(ScalarTextDifferential, AMillionTextsReadLikeStrtod) {
  EXPECT_GT(compareParsing(3), kMillion / 2);
}

TEST(ScalarTextDifferential, AMillionTextsReadLikeStrtodUnderACommaLocale) {
  const ForeignLocale locale(ForeignLocale::kComma);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  EXPECT_GT(compareParsing(4), kMillion / 2);
}

TEST(ScalarTextDifferential, AMillionDoublesReadBackExactly) {
  Numbers numbers(5);
  std::string text;
  for (int i = 0; i < kMillion; ++i) {
    const double number = numbers.real();
    text.clear();
    pocketjson::formatDouble(number, text);
    bool consumed = false;
    ASSERT_EQ(pocketjson::parseDouble(text.c_str(), consumed), number) << text;
    ASSERT_TRUE(consumed) << text;
  }
}

TEST(ScalarTextDifferential, AMillionTextsReadLikeStrtoll) {
  std::mt19937_64 random(6);
  const std::string alphabet = "00112789abfxX+- \t.";
  int numbers = 0;
  for (int i = 0; i < kMillion; ++i) {
    std::string text;
    if (random() % 2 == 0) {
      text = std::to_string(static_cast<std::int64_t>(random()) >> (random() % 64));
    } else {
      for (std::size_t n = random() % 8; n > 0; --n) text += alphabet[random() % alphabet.size()];
    }
    char* stop = nullptr;
    const long long number = std::strtoll(text.c_str(), &stop, 0);
    const bool whole = *stop == '\0' && number >= std::numeric_limits<std::int32_t>::min() &&
                       number <= std::numeric_limits<std::int32_t>::max();
    // A newer C library reads "0b1" as a number; here it is none.
    if (text.find("0b") != std::string::npos && text.find('x') == std::string::npos) continue;
    if (whole && number != 0) ++numbers;
    ASSERT_EQ(pocketjson::parseInt(text.c_str()), whole ? number : 0) << '"' << text << '"';
  }
  EXPECT_GT(numbers, kMillion / 10);
}

}  // namespace
