// SPDX-License-Identifier: MIT
// A host that has set its country's locale reads and prints the same numbers.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <cstdio>

#include "foreign_locale.h"

using pocketjson::Value;

namespace {

TEST(ValueEdgeCases, ACommaLocaleChangesNeitherAsStringNorAsDouble) {
  const ForeignLocale locale(ForeignLocale::kComma);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  char control[16];
  std::snprintf(control, sizeof control, "%g", 0.5);
  ASSERT_STREQ(control, "0,5");

  EXPECT_EQ(Value(0.5).asString(), "0.5");
  EXPECT_EQ(Value(-1234567.25).asString(), "-1234567.25");
  EXPECT_EQ(Value("0.5").asDouble(), 0.5);
  EXPECT_EQ(Value(" 0.5").asDouble(), 0.5);
  EXPECT_EQ(Value("0x1.8p3").asDouble(), 12.0);
}

// Kept: the host's own decimal point is understood too.
TEST(ValueEdgeCases, ACommaLocaleReadsItsOwnComma) {
  EXPECT_EQ(Value("0,5").asDouble(-7.0), -7.0);
  const ForeignLocale locale(ForeignLocale::kComma);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  EXPECT_EQ(Value("0,5").asDouble(-7.0), 0.5);
  EXPECT_EQ(Value("0.5,5").asDouble(-7.0), -7.0);
}

TEST(ValueEdgeCases, ADecimalPointOfTwoBytesChangesNeither) {
  const ForeignLocale locale(ForeignLocale::kTwoBytes);
  if (!locale.active()) GTEST_SKIP() << kNoForeignLocale;
  EXPECT_EQ(Value(0.5).asString(), "0.5");
  EXPECT_EQ(Value("0.5").asDouble(), 0.5);
}

}  // namespace
