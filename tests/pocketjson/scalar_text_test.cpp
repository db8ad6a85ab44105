// SPDX-License-Identifier: MIT
// formatDouble, formatInt, parseDouble and parseInt by example.
#include "pocketjson/scalar_text.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "foreign_locale.h"

using pocketjson::formatDouble;
using pocketjson::formatInt;
using pocketjson::parseDouble;
using pocketjson::parseInt;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

std::string format(double number) {
  std::string text;
  formatDouble(number, text);
  return text;
}

struct Parsed {
  double number;
  bool consumed;
};

Parsed parse(const char* text) {
  Parsed parsed{};
  parsed.number = parseDouble(text, parsed.consumed);
  return parsed;
}

TEST(ScalarTextEdgeCases, BothZerosAreZeroPointZero) {
  EXPECT_EQ(format(0.0), "0.0");
  EXPECT_EQ(format(-0.0), "0.0");
}

TEST(ScalarTextEdgeCases, OnlyZeroGetsAFraction) {
  EXPECT_EQ(format(1.0), "1");
  EXPECT_EQ(format(2.0), "2");
  EXPECT_EQ(format(0.5), "0.5");
  EXPECT_EQ(format(-1.5), "-1.5");
  EXPECT_EQ(format(1e21), "1e+21");
  EXPECT_EQ(format(0.1), "0.10000000000000001");
}

TEST(ScalarTextEdgeCases, TheExtremesOfDouble) {
  EXPECT_EQ(format(std::numeric_limits<double>::max()), "1.7976931348623157e+308");
  EXPECT_EQ(format(std::numeric_limits<double>::min()), "2.2250738585072014e-308");
  EXPECT_EQ(format(-std::numeric_limits<double>::denorm_min()), "-4.9406564584124654e-324");
}

TEST(ScalarTextEdgeCases, FormattingAppends) {
  std::string text = "x=";
  EXPECT_TRUE(formatDouble(0.25, text));
  EXPECT_TRUE(formatDouble(0.0, text));
  EXPECT_EQ(text, "x=0.250.0");
}

TEST(ScalarTextEdgeCases, IntegersOfAllSizes) {
  EXPECT_EQ(formatInt(0), "0");
  EXPECT_EQ(formatInt(-1), "-1");
  EXPECT_EQ(formatInt(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_EQ(formatInt(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
}

TEST(ScalarTextEdgeCases, TheEmptyTextIsConsumedAndZero) {
  EXPECT_TRUE(parse("").consumed);
  EXPECT_EQ(parse("").number, 0.0);
}

TEST(ScalarTextEdgeCases, OnlyTheFirstPointIsTheDecimalPoint) {
  EXPECT_FALSE(parse("1.2.3").consumed);
  EXPECT_FALSE(parse("..5").consumed);
}

TEST(ScalarTextEdgeCases, WhatOnlyTheCFunctionReads) {
  EXPECT_EQ(parse("+2").number, 2.0);
  EXPECT_EQ(parse("0x1.8p3").number, 12.0);
  EXPECT_EQ(parse("1e400").number, kInf);
  EXPECT_EQ(parse("-1e400").number, -kInf);
  EXPECT_EQ(parse("1e-400").number, 0.0);
  EXPECT_EQ(parse("infinity").number, kInf);
  EXPECT_TRUE(std::isnan(parse("NAN(1)").number));
  for (const char* text : {"+2", "0x1.8p3", "1e400", "-1e400", "1e-400", "infinity", "NAN(1)"}) {
    EXPECT_TRUE(parse(text).consumed) << text;
  }
}

TEST(ScalarTextEdgeCases, ANegativeZeroTextKeepsItsSign) {
  EXPECT_TRUE(std::signbit(parse("-0").number));
  EXPECT_TRUE(std::signbit(parse("-0.0e5").number));
}

TEST(ScalarTextFailures, NonFiniteNumbersAreToldByTheResult) {
  std::string text;
  EXPECT_FALSE(formatDouble(std::nan(""), text));
  EXPECT_EQ(text, "nan");
  text.clear();
  EXPECT_FALSE(formatDouble(-std::nan(""), text));
  EXPECT_EQ(text, "nan");
  text.clear();
  EXPECT_FALSE(formatDouble(kInf, text));
  EXPECT_EQ(text, "inf");
  text.clear();
  EXPECT_FALSE(formatDouble(-kInf, text));
  EXPECT_EQ(text, "-inf");
  EXPECT_TRUE(formatDouble(0.0, text));
  EXPECT_TRUE(formatDouble(1.0, text));
}

TEST(ScalarTextFailures, LeadingBlanksAreAcceptedAndTrailingCharactersAreNot) {
  EXPECT_TRUE(parse(" \t\n\v\f\r1.5").consumed);
  EXPECT_EQ(parse(" 1.5").number, 1.5);
  for (const char* text : {"1.5 ", "1.5x", "1.5e", "1.5\n", "0x", "1.5\xC2\xA0", "5f"}) {
    EXPECT_FALSE(parse(text).consumed) << text;
  }
}

TEST(ScalarTextFailures, TextsWithoutANumberAreNotConsumed) {
  for (const char* text : {" ", "x", ".", "-", "+", "-.", "e5", "--1", "+-1", "true", "in"}) {
    EXPECT_FALSE(parse(text).consumed) << text;
  }
}

TEST(ScalarTextFailures, IntegersThatDoNotFitAreZero) {
  EXPECT_EQ(parseInt("2147483647"), 2147483647);
  EXPECT_EQ(parseInt("-2147483648"), -2147483647 - 1);
  for (const char* text :
       {"2147483648", "-2147483649", "9223372036854775808", "1e3", "0b1", " -0B1"}) {
    EXPECT_EQ(parseInt(text), 0) << text;
  }
  EXPECT_EQ(parseInt("0x0b"), 11);
}

// The C functions follow the host's rounding mode, and so do these.
TEST(ScalarText, FollowsTheRoundingModeOfTheHost) {
  for (int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    ASSERT_EQ(std::fesetround(mode), 0);
    char expected[64];
    std::snprintf(expected, sizeof expected, "%.17g", 0.1);
    const std::string text = format(0.1);
    const double read = parse("0.3").number;
    const double expectedRead = std::strtod("0.3", nullptr);
    std::fesetround(FE_TONEAREST);
    EXPECT_EQ(text, expected) << mode;
    EXPECT_EQ(read, expectedRead) << mode;
  }
}

TEST(ScalarTextEdgeCases, ACommaLocaleUnderAnotherRoundingModeStillPrintsAPoint) {
  const ForeignLocale locale(ForeignLocale::kComma);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  ASSERT_EQ(std::fesetround(FE_TOWARDZERO), 0);
  const std::string text = format(0.5);
  const Parsed parsed = parse("0.5");
  std::fesetround(FE_TONEAREST);
  EXPECT_EQ(text, "0.5");
  EXPECT_TRUE(parsed.consumed);
  EXPECT_EQ(parsed.number, 0.5);
}

// Kept: on the C function's road only the first byte of the locale's decimal point is put in.
TEST(ScalarTextEdgeCases, ATwoByteDecimalPointIsPutInByItsFirstByteAlone) {
  const ForeignLocale locale(ForeignLocale::kTwoBytes);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  EXPECT_FALSE(parse("0x1.8p3").consumed);
  EXPECT_TRUE(parse("0.5").consumed);
  EXPECT_EQ(format(0.5), "0.5");
}

}  // namespace
