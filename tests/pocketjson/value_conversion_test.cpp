// SPDX-License-Identifier: MIT
// The conversion tables, cell by cell. The defaults are chosen so that none looks like a result.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <cmath>
#include <limits>

using pocketjson::Value;

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
const double kNan = std::nan("");
constexpr int kDefaultInt = -77;
constexpr double kDefaultDouble = -77.25;
const std::string kDefaultText = "the default";

int toInt(const Value& value) { return value.asInt(kDefaultInt); }
double toDouble(const Value& value) { return value.asDouble(kDefaultDouble); }
std::string toText(const Value& value) { return value.asString(kDefaultText); }

std::vector<Value> typesWithoutConversion() {
  return {Value(), Value(std::vector<Value>{1}), Value(std::map<std::string, Value>{{"a", 1}})};
}

TEST(ValueConversion, NullObjectAndArrayGiveEachDefault) {
  for (const Value& value : typesWithoutConversion()) {
    EXPECT_TRUE(value.asBool(true));
    EXPECT_FALSE(value.asBool(false));
    EXPECT_EQ(toInt(value), kDefaultInt);
    EXPECT_EQ(toDouble(value), kDefaultDouble);
    EXPECT_EQ(toText(value), kDefaultText);
  }
}

TEST(ValueConversion, TheDefaultsOfTheDefaultsAreFalseZeroAndEmpty) {
  const Value null;
  EXPECT_FALSE(null.asBool());
  EXPECT_EQ(null.asInt(), 0);
  EXPECT_EQ(null.asDouble(), 0.0);
  EXPECT_EQ(null.asString(), "");
}

TEST(ValueConversion, BoolToEachType) {
  EXPECT_TRUE(Value(true).asBool(false));
  EXPECT_FALSE(Value(false).asBool(true));
  EXPECT_EQ(toInt(true), 1);
  EXPECT_EQ(toInt(false), 0);
  EXPECT_EQ(toDouble(true), 1.0);
  EXPECT_EQ(toDouble(false), 0.0);
  EXPECT_EQ(toText(true), "true");
  EXPECT_EQ(toText(false), "false");
}

TEST(ValueConversion, IntToBool) {
  EXPECT_TRUE(Value(-1).asBool(false));
  EXPECT_TRUE(Value(1LL << 40).asBool(false));
  EXPECT_FALSE(Value(0).asBool(true));
}

TEST(ValueConversion, IntToIntOnlyWithinThirtyTwoBits) {
  EXPECT_EQ(toInt(2147483647), 2147483647);
  EXPECT_EQ(toInt(-2147483647 - 1), -2147483647 - 1);
  EXPECT_EQ(toInt(2147483648LL), kDefaultInt);
  EXPECT_EQ(toInt(-2147483649LL), kDefaultInt);
  EXPECT_EQ(toInt(std::numeric_limits<long long>::max()), kDefaultInt);
}

TEST(ValueConversion, IntToDoubleIsTheNearestDouble) {
  EXPECT_EQ(toDouble(300), 300.0);
  EXPECT_EQ(toDouble(-1), -1.0);
  EXPECT_EQ(toDouble((1LL << 53) + 1), 9007199254740992.0);
}

TEST(ValueConversion, IntToTextIsDecimal) {
  EXPECT_EQ(toText(0), "0");
  EXPECT_EQ(toText(-15), "-15");
  EXPECT_EQ(toText(std::numeric_limits<long long>::max()), "9223372036854775807");
}

TEST(ValueConversion, DoubleToBoolIsNotZero) {
  EXPECT_TRUE(Value(0.1).asBool(false));
  EXPECT_TRUE(Value(kNan).asBool(false));
  EXPECT_TRUE(Value(-kInf).asBool(false));
  EXPECT_FALSE(Value(0.0).asBool(true));
  EXPECT_FALSE(Value(-0.0).asBool(true));
}

TEST(ValueConversion, DoubleToIntRoundsHalvesAwayFromZero) {
  EXPECT_EQ(toInt(0.5), 1);
  EXPECT_EQ(toInt(-0.5), -1);
  EXPECT_EQ(toInt(1.5), 2);
  EXPECT_EQ(toInt(2.5), 3);
  EXPECT_EQ(toInt(-2.5), -3);
  EXPECT_EQ(toInt(0.49999999999999994), 0);
  EXPECT_EQ(toInt(17.5), 18);
}

TEST(ValueConversion, DoubleToIntChecksTheRangeAfterRounding) {
  EXPECT_EQ(toInt(2147483647.0), 2147483647);
  EXPECT_EQ(toInt(2147483647.4), 2147483647);
  EXPECT_EQ(toInt(2147483647.5), kDefaultInt);
  EXPECT_EQ(toInt(-2147483648.4), -2147483647 - 1);
  EXPECT_EQ(toInt(-2147483648.5), kDefaultInt);
  EXPECT_EQ(toInt(3e9), kDefaultInt);
  EXPECT_EQ(toInt(kInf), kDefaultInt);
  EXPECT_EQ(toInt(-kInf), kDefaultInt);
  EXPECT_EQ(toInt(kNan), kDefaultInt);
}

TEST(ValueConversion, DoubleToDoubleIsItself) {
  EXPECT_EQ(toDouble(0.1), 0.1);
  EXPECT_TRUE(std::signbit(toDouble(-0.0)));
  EXPECT_TRUE(std::isnan(toDouble(kNan)));
}

TEST(ValueConversion, DoubleToTextHasSeventeenDigits) {
  EXPECT_EQ(toText(1.0), "1");
  EXPECT_EQ(toText(0.1), "0.10000000000000001");
  EXPECT_EQ(toText(1e21), "1e+21");
  EXPECT_EQ(toText(1e-7), "9.9999999999999995e-08");
  EXPECT_EQ(toText(kInf), "inf");
}

// Kept: also with a default of true, every text but one is false.
TEST(ValueConversion, TextToBoolIsTrueForExactlyTrue) {
  EXPECT_TRUE(Value("true").asBool(false));
  for (const char* text : {"True", "TRUE", "1", "yes", "true ", " true", "tru", "truee", ""}) {
    EXPECT_FALSE(Value(text).asBool(true)) << text;
  }
  EXPECT_FALSE(Value(std::string("true\0", 5)).asBool(true));
}

TEST(ValueConversion, TextToIntReadsLikeALiteral) {
  EXPECT_EQ(toInt("31"), 31);
  EXPECT_EQ(toInt("0x1F"), 31);
  EXPECT_EQ(toInt("0X1f"), 31);
  EXPECT_EQ(toInt("037"), 31);
  EXPECT_EQ(toInt("-0x10"), -16);
  EXPECT_EQ(toInt("+5"), 5);
  EXPECT_EQ(toInt(" \t\n7"), 7);
  EXPECT_EQ(toInt("2147483647"), 2147483647);
  EXPECT_EQ(toInt("-2147483648"), -2147483647 - 1);
}

// Kept: 0 and not the default.
TEST(ValueConversion, TextToIntIsZeroForAnythingElse) {
  for (const char* text : {"", " ", "12abc", "32 levels", "7 ", "1.0", "1e2", "08", "0x", "0b101",
                           "0B1", "abc", "--1", "2147483648", "-2147483649", "0xFFFFFFFF",
                           "99999999999999999999", "-99999999999999999999"}) {
    EXPECT_EQ(toInt(text), 0) << text;
  }
}

TEST(ValueConversion, TextToDoubleTakesTheWholeText) {
  EXPECT_EQ(toDouble("250.5"), 250.5);
  EXPECT_EQ(toDouble("-1e-3"), -0.001);
  EXPECT_EQ(toDouble(".5"), 0.5);
  EXPECT_EQ(toDouble("5."), 5.0);
  EXPECT_EQ(toDouble("+2"), 2.0);
  EXPECT_EQ(toDouble(" 2"), 2.0);
  EXPECT_EQ(toDouble("0x1.8p3"), 12.0);
  EXPECT_EQ(toDouble("1e400"), kInf);
  EXPECT_EQ(toDouble("-inf"), -kInf);
  EXPECT_TRUE(std::isnan(toDouble("nan")));
  for (const char* text : {"1.5x", "x", "2 ", "1,5", "1.5.5", ".", "-", "0x", "true"}) {
    EXPECT_EQ(toDouble(text), kDefaultDouble) << text;
  }
}

// Kept: the empty text is consumed as a whole.
TEST(ValueConversion, TheEmptyTextIsTheDoubleZero) { EXPECT_EQ(toDouble(""), 0.0); }

// Kept: numbers are read from C texts, so the first NUL byte ends the whole text.
TEST(ValueConversion, ATextWithANulByteReadsAsWhatLiesBeforeIt) {
  EXPECT_EQ(toDouble(std::string("1.5\0x", 5)), 1.5);
  EXPECT_EQ(toInt(std::string("12\0ab", 5)), 12);
  EXPECT_EQ(toInt(std::string("12a\0", 4)), 0);
}

TEST(ValueConversion, TextToTextIsACopy) {
  EXPECT_EQ(toText(""), "");
  EXPECT_EQ(toText("a \"b\""), "a \"b\"");
  EXPECT_EQ(toText(std::string("a\0b", 3)), std::string("a\0b", 3));
}

}  // namespace
