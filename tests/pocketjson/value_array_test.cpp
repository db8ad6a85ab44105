// SPDX-License-Identifier: MIT
// Arrays: growing, indices past the end, and other types that become arrays. Keys of objects.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <limits>
#include <stdexcept>

#include "describe.h"

using pocketjson::Value;

namespace {

TEST(ValueArray, IsBuiltByIndexInOrder) {
  Value value;
  for (int i = 0; i < 5; ++i) value[static_cast<std::size_t>(i)] = i * i;
  EXPECT_EQ(describe(value), "[i0,i1,i4,i9,i16]");
}

TEST(ValueArray, AnIndexOneBeyondTheLastAppendsANull) {
  Value value(std::vector<Value>{1});
  EXPECT_EQ(value[1].type(), Value::Null);
  EXPECT_EQ(describe(value), "[i1,null]");
}

TEST(ValueArray, AnIndexFurtherOutThrowsAndChangesNothing) {
  Value value(std::vector<Value>{1});
  EXPECT_THROW(value[2], std::out_of_range);
  EXPECT_THROW(value[-1], std::out_of_range);
  EXPECT_THROW(value[std::numeric_limits<std::size_t>::max()], std::out_of_range);
  EXPECT_EQ(describe(value), "[i1]");
  Value text = "text";
  EXPECT_THROW(text[1], std::out_of_range);
  EXPECT_EQ(describe(text), "s\"text\"");
}

TEST(ValueArray, AConstIndexBeyondTheEndIsTheNullValue) {
  const Value value(std::vector<Value>{1});
  EXPECT_EQ(&value[1], &Value::nullValue());
  EXPECT_EQ(&value[-1], &Value::nullValue());
  EXPECT_EQ(value[1].asInt(9), 9);
}

TEST(ValueArray, AMutableIndexTurnsEveryOtherTypeIntoAnArray) {
  std::map<std::string, Value> members{{"0", 1}};
  for (Value value : {Value(), Value(true), Value(1), Value(0.5), Value("text"), Value(members)}) {
    value[0] = "x";
    EXPECT_EQ(describe(value), "[s\"x\"]");
  }
}

TEST(ValueArray, AppendTurnsEveryOtherTypeIntoAnArray) {
  std::map<std::string, Value> members{{"0", 1}};
  for (Value value : {Value(), Value(true), Value(1), Value(0.5), Value("text"), Value(members)}) {
    value.append("x");
    EXPECT_EQ(describe(value), "[s\"x\"]");
  }
}

TEST(ValueArray, AppendsItselfAndItsOwnElements) {
  Value value;
  value.append("a");
  for (int i = 0; i < 20; ++i) value.append(static_cast<const Value&>(value)[0]);
  EXPECT_EQ(value.size(), 21u);
  Value nest = 1;
  nest.append(nest);
  nest.append(nest);
  EXPECT_EQ(describe(nest), "[i1,[i1]]");
}

TEST(ValueArray, AnElementOfAnElementCanBeWritten) {
  Value value;
  value[0][0]["k"][0] = 1;
  EXPECT_EQ(describe(value), "[[{k:[i1]}]]");
}

TEST(ValueKeys, AreEmptyForEverythingButAnObject) {
  for (const Value& value :
       {Value(), Value(true), Value(1), Value(0.5), Value("text"), Value(std::vector<Value>{1})}) {
    EXPECT_TRUE(value.keys().empty());
  }
}

TEST(ValueKeys, AreExactBytes) {
  Value value;
  value[std::string("a\0b", 3)] = 1;
  value["a"] = 2;
  value[""] = 3;
  value["\xC3\xA4"] = 4;
  const Value& read = value;
  EXPECT_EQ(read[std::string_view("a\0b", 3)].asInt(), 1);
  EXPECT_EQ(read["a"].asInt(), 2);
  EXPECT_EQ(read[""].asInt(), 3);
  EXPECT_EQ(read["A"].type(), Value::Null);
  EXPECT_EQ(value.keys(), (std::vector<std::string>{"", "a", std::string("a\0b", 3), "\xC3\xA4"}));
}

TEST(ValueKeys, ANullPointerIsTheEmptyKey) {
  const char* none = nullptr;
  Value value;
  value[none] = 1;
  EXPECT_EQ(value.keys(), std::vector<std::string>{""});
  EXPECT_EQ(static_cast<const Value&>(value)[none].asInt(), 1);
}

}  // namespace
