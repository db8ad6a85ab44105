// SPDX-License-Identifier: MIT
// Making values from plain types, and giving them others.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <limits>
#include <utility>

#include "describe.h"

using pocketjson::Value;

namespace {

TEST(ValueConstruction, EveryPlainTypeGetsItsKind) {
  EXPECT_EQ(describe(Value()), "null");
  EXPECT_EQ(describe(Value(nullptr)), "null");
  EXPECT_EQ(describe(Value(false)), "false");
  EXPECT_EQ(describe(Value(-3)), "i-3");
  EXPECT_EQ(describe(Value(1u)), "i1");
  EXPECT_EQ(describe(Value(1L)), "i1");
  EXPECT_EQ(describe(Value(std::size_t{9})), "i9");
  EXPECT_EQ(describe(Value(static_cast<unsigned char>(200))), "i200");
  EXPECT_EQ(describe(Value(static_cast<short>(-7))), "i-7");
  EXPECT_EQ(describe(Value(0.5f)), "d0.5");
  EXPECT_EQ(describe(Value("text")), "s\"text\"");
  EXPECT_EQ(describe(Value(std::string("text"))), "s\"text\"");
  EXPECT_EQ(describe(Value(std::string_view("text").substr(1))), "s\"ext\"");
  EXPECT_EQ(describe(Value(std::vector<Value>{1, "a", true, 0.5})), "[i1,s\"a\",true,d0.5]");
  EXPECT_EQ(describe(Value(std::map<std::string, Value>{{"k", 1}, {"B", "x"}})), "{B:s\"x\",k:i1}");
}

TEST(ValueConstruction, ALiteralIsATextAndNotABool) {
  Value value = "false";
  EXPECT_EQ(value.type(), Value::String);
  value = "";
  EXPECT_EQ(value.type(), Value::String);
  char buffer[] = "buffer";
  value = buffer;
  EXPECT_EQ(value.asString(), "buffer");
}

TEST(ValueConstruction, ANullTextPointerIsNull) {
  const char* absent = nullptr;
  EXPECT_EQ(Value(absent).type(), Value::Null);
  Value value = 1;
  value = absent;
  EXPECT_EQ(value.asString("default"), "default");
}

TEST(ValueConstruction, ATextMayHoldNulBytes) {
  const std::string text("a\0b", 3);
  EXPECT_EQ(Value(text).size(), 3u);
  EXPECT_EQ(Value(text).asString(), text);
  EXPECT_EQ(Value(std::string_view(text)).asString(), text);
}

TEST(ValueConstruction, UnsignedNumbersAboveIntBecomeTheNearestDouble) {
  const unsigned long long largest = std::numeric_limits<long long>::max();
  EXPECT_EQ(describe(Value(largest)), "i9223372036854775807");
  EXPECT_EQ(describe(Value(largest + 1)), "d9.2233720368547758e+18");
  EXPECT_EQ(Value(~0ull).asDouble(), 18446744073709551615.0);
  EXPECT_EQ(Value(std::size_t{~0ull}).type(), Value::Double);
}

TEST(ValueConstruction, AnEnumeratorOfACEnumerationIsItsNumber) {
  enum Code : std::int32_t { kFailed = -2 };
  EXPECT_EQ(describe(Value(kFailed)), "i-2");
}

TEST(ValueConstruction, AMovedFromValueIsNull) {
  Value source = "text";
  Value target = std::move(source);
  EXPECT_EQ(source.type(), Value::Null);
  EXPECT_EQ(payloadOf(source), 0u);
  EXPECT_EQ(shares(target), 1u);
}

TEST(ValueConstruction, AVectorThatIsMovedInIsNotCopied) {
  std::vector<Value> elements{1, 2, 3};
  const Value* first = elements.data();
  const Value value(std::move(elements));
  EXPECT_EQ(&value[0], first);
}

TEST(ValueAssignment, ReleasesWhatWasThere) {
  const Value other = "text";
  Value value = other;
  EXPECT_EQ(shares(other), 2u);
  value = 1;
  EXPECT_EQ(shares(other), 1u);
  value = other;
  value = 0.5;
  EXPECT_EQ(shares(other), 1u);
  value = other;
  value = true;
  EXPECT_EQ(shares(other), 1u);
  EXPECT_EQ(describe(value), "true");
}

TEST(ValueAssignment, OfAValueToItselfKeepsIt) {
  Value value = "text";
  const Value& same = value;
  value = same;
  EXPECT_EQ(describe(value), "s\"text\"");
  EXPECT_EQ(shares(value), 1u);
  Value& alias = value;
  value = std::move(alias);
  EXPECT_EQ(describe(value), "s\"text\"");
}

TEST(ValueAssignment, OfItsOwnMemberIsSafe) {
  Value value;
  value["a"]["b"] = "inner";
  value = value["a"];
  EXPECT_EQ(describe(value), "{b:s\"inner\"}");
  value = std::move(value["b"]);
  EXPECT_EQ(describe(value), "s\"inner\"");
}

TEST(ValueAssignment, OfAValueToItsOwnMemberIsSafe) {
  Value value;
  value["a"] = 1;
  value["a"] = value;
  EXPECT_EQ(describe(value), "{a:{a:i1}}");
  value["a"]["b"] = value;
  EXPECT_EQ(describe(value), "{a:{a:i1,b:{a:{a:i1}}}}");
  value["m"] = std::move(value);
  EXPECT_EQ(describe(value), "{m:{a:{a:i1,b:{a:{a:i1}}}}}");
}

TEST(ValueAssignment, SwapExchangesAnyTwoTypes) {
  Value text = "text";
  Value number = 1;
  swap(text, number);
  EXPECT_EQ(describe(text), "i1");
  EXPECT_EQ(describe(number), "s\"text\"");
  EXPECT_EQ(shares(number), 1u);
}

}  // namespace
