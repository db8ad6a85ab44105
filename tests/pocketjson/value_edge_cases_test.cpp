// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <cmath>
#include <limits>
#include <string>

#include "describe.h"

using pocketjson::Value;

namespace {

TEST(ValueEdgeCases, KeyedReadOnANonObjectGivesTheNullValue) {
  for (const Value& value :
       {Value(), Value(true), Value(1), Value(0.5), Value("a"), Value(std::vector<Value>{1})}) {
    EXPECT_EQ(&value["a"], &Value::nullValue());
    EXPECT_EQ(value["a"].asInt(-5), -5);
    EXPECT_EQ(value["a"].asDouble(-0.5), -0.5);
    EXPECT_EQ(value["a"].asString("def"), "def");
    EXPECT_TRUE(value["a"].asBool(true));
  }
}

TEST(ValueEdgeCases, KeysThatBeginAlikeAreToldApart) {
  Value object;
  object["numberOfGraylevels"] = 52;
  const Value& read = object;
  EXPECT_EQ(&read["numberOfDarklevels"], &Value::nullValue());
  EXPECT_EQ(&read["numberOf"], &Value::nullValue());
  for (int i = 0; i < 400; i += 2) object["numberOf" + std::to_string(1000 + i)] = i;
  EXPECT_EQ(object.size(), 201u);
  for (int i = 0; i < 400; ++i) {
    EXPECT_EQ(read["numberOf" + std::to_string(1000 + i)].asInt(-1), i % 2 == 0 ? i : -1);
  }
  EXPECT_EQ(read["numberOfGraylevels"].asInt(), 52);
}

TEST(ValueEdgeCases, AMissingKeyGivesTheNullValue) {
  Value object;
  object["a"] = 1;
  const Value& read = object;
  EXPECT_EQ(&read["b"], &Value::nullValue());
  EXPECT_EQ(&read["a"]["b"]["c"], &Value::nullValue());
  EXPECT_EQ(object.size(), 1u);
}

TEST(ValueEdgeCases, IndexedReadOnANonArrayGivesTheNullValue) {
  for (const Value& value : {Value(), Value(true), Value(1), Value(0.5), Value("abc"),
                             Value(std::map<std::string, Value>{{"0", 1}})}) {
    EXPECT_EQ(&value[0], &Value::nullValue());
  }
}

TEST(ValueEdgeCases, TheNullValueIsOneAndNull) {
  EXPECT_EQ(&Value::nullValue(), &Value::nullValue());
  EXPECT_EQ(Value::nullValue().type(), Value::Null);
  EXPECT_EQ(payloadOf(Value::nullValue()), 0u);
}

TEST(ValueEdgeCases, KeyedWriteOnAStringLeavesAnObjectWithTheNewKeyAlone) {
  Value value = "old";
  value["k"] = 1;
  EXPECT_EQ(describe(value), "{k:i1}");
}

TEST(ValueEdgeCases, KeyedWriteTurnsEveryOtherTypeIntoAnObject) {
  for (Value value : {Value(), Value(true), Value(1), Value(0.5), Value(std::vector<Value>{1})}) {
    value["k"];
    EXPECT_EQ(describe(value), "{k:null}");
  }
}

TEST(ValueEdgeCases, NestedKeyedWritesBuildNestedObjects) {
  Value result = "";
  result["calibrationTarget"]["lmin"] = 0.35;
  result["photoSensorAD"] = 812;
  EXPECT_EQ(describe(result), "{calibrationTarget:{lmin:d0.34999999999999998},photoSensorAD:i812}");
}

TEST(ValueEdgeCases, WritingThroughOneCopyLeavesTheOtherAndSharesWhatWasNotWritten) {
  Value original;
  original["a"] = 1;
  original["nested"]["b"] = 2;
  Value copy = original;
  copy["a"] = 9;
  const Value& left = original;
  const Value& right = copy;
  EXPECT_EQ(left["a"].asInt(), 1);
  EXPECT_EQ(right["a"].asInt(), 9);
  EXPECT_EQ(containerOf(left["nested"]), containerOf(right["nested"]));
  EXPECT_EQ(shares(left["nested"]), 2u);
}

TEST(ValueEdgeCases, SetTypeWithTheCurrentTypeKeepsTheContents) {
  std::map<std::string, Value> members{{"k", 1}};
  for (const Value& value : {Value(), Value(true), Value(3), Value(0.5), Value("text"),
                             Value(std::vector<Value>{1}), Value(members)}) {
    Value same = value;
    same.setType(value.type());
    EXPECT_EQ(describe(same), describe(value));
  }
}

TEST(ValueEdgeCases, SetTypeWithAnotherTypeClearsTheContents) {
  const std::pair<Value::Type, const char*> kinds[] = {
      {Value::Null, "null"},   {Value::Bool, "false"},   {Value::Int, "i0"},
      {Value::Double, "d0.0"}, {Value::String, "s\"\""}, {Value::Object, "{}"},
      {Value::Array, "[]"}};
  std::map<std::string, Value> members{{"k", 1}};
  for (const Value& value : {Value(), Value(true), Value(3), Value(0.5), Value("text"),
                             Value(std::vector<Value>{1}), Value(members)}) {
    for (const auto& [kind, empty] : kinds) {
      if (kind == value.type()) continue;
      Value changed = value;
      changed.setType(kind);
      EXPECT_EQ(changed.type(), kind);
      EXPECT_EQ(describe(changed), empty);
      if ((kind & Value::kContainerMask) == 0) {
        EXPECT_EQ(payloadOf(changed), 0u);
      }
    }
  }
}

// A tag that is none of the kinds holds nothing, whatever its bits; it can be copied and dropped.
TEST(ValueEdgeCases, SetTypeWithAnUnknownTagHoldsNothing) {
  for (std::uint32_t tag : {8u, 0x30u, 0x60u, 0x70u, 0x80000000u}) {
    Value value = "text";
    value.setType(static_cast<Value::Type>(tag));
    const Value copy = value;
    EXPECT_EQ(copy.type(), tag);
    EXPECT_EQ(payloadOf(copy), 0u);
    EXPECT_EQ(copy.size(), 0u);
    EXPECT_EQ(copy.asInt(5), 5);
    EXPECT_EQ(&copy["a"], &Value::nullValue());
    Value list;
    list.append(value);
    value["k"] = 1;
    EXPECT_EQ(describe(value), "{k:i1}");
  }
}

TEST(ValueEdgeCases, AsIntOfDoublesAndTexts) {
  EXPECT_EQ(Value(2.5).asInt(-7), 3);
  EXPECT_EQ(Value(-2.5).asInt(-7), -3);
  EXPECT_EQ(Value(3e9).asInt(-7), -7);
  EXPECT_EQ(Value("0x1F").asInt(-7), 31);
  EXPECT_EQ(Value("12abc").asInt(-7), 0);
  EXPECT_EQ(Value("").asInt(-7), 0);
}

TEST(ValueEdgeCases, AsBoolOfTextsAndZeros) {
  EXPECT_FALSE(Value("True").asBool(true));
  EXPECT_FALSE(Value(0.0).asBool(true));
  EXPECT_FALSE(Value(-0.0).asBool(true));
}

TEST(ValueEdgeCases, SizeOfEveryType) {
  EXPECT_EQ(Value(5).size(), 0u);
  EXPECT_EQ(Value("abc").size(), 3u);
  EXPECT_EQ(Value().size() + Value(true).size() + Value(0.5).size(), 0u);
  EXPECT_EQ(Value(std::vector<Value>{1, 2}).size(), 2u);
  EXPECT_EQ(Value(std::map<std::string, Value>{{"a", 1}}).size(), 1u);
}

TEST(ValueEdgeCases, MembersIterateInTheByteOrderOfTheirKeys) {
  Value value;
  for (const char* key : {"b", "a", "B", "ab", "\xC3\xA4", "", "Z", "aB", "\x7F", "\x80"}) {
    value[key] = 1;
  }
  EXPECT_EQ(value.keys(), (std::vector<std::string>{"", "B", "Z", "a", "aB", "ab", "b", "\x7F",
                                                    "\x80", "\xC3\xA4"}));
}

TEST(ValueEdgeCases, AsStringOfDoubles) {
  EXPECT_EQ(Value(0.0).asString(), "0.0");
  EXPECT_EQ(Value(-0.0).asString(), "0.0");
  EXPECT_EQ(Value(2.0).asString(), "2");
  EXPECT_EQ(Value(0.5).asString(), "0.5");
  EXPECT_EQ(Value(-1.5).asString(), "-1.5");
}

TEST(ValueEdgeCases, AsStringOfNanAndInfinity) {
  EXPECT_EQ(Value(std::nan("")).asString("def"), "nan");
  EXPECT_EQ(Value(-std::nan("")).asString("def"), "nan");
  EXPECT_EQ(Value(-std::numeric_limits<double>::infinity()).asString("def"), "-inf");
}

TEST(ValueEdgeCases, AsDoubleOfTexts) {
  EXPECT_EQ(Value("1.5x").asDouble(-7.0), -7.0);
  EXPECT_EQ(Value("120").asDouble(-7.0), 120.0);
  EXPECT_EQ(Value("1e2").asDouble(-7.0), 100.0);
}

TEST(ValueEdgeCases, AsStringOfTheSmallestInt) {
  EXPECT_EQ(Value(std::numeric_limits<long long>::min()).asString(), "-9223372036854775808");
}

}  // namespace
