// SPDX-License-Identifier: MIT
// Who shares a container with whom, and when that ends.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <optional>

#include "describe.h"

using pocketjson::Value;

namespace {

Value sample() {
  Value value;
  value["list"][0] = 1;
  value["nested"]["text"] = "t";
  value["number"] = 5;
  return value;
}

const Value& member(const Value& value, const char* key) { return value[key]; }

TEST(ValueSharing, ACopyIsOneMoreShare) {
  const Value original = sample();
  EXPECT_EQ(shares(original), 1u);
  {
    const Value copy = original;
    EXPECT_EQ(containerOf(copy), containerOf(original));
    EXPECT_EQ(shares(original), 2u);
    Value third;
    third = copy;
    EXPECT_EQ(shares(original), 3u);
  }
  EXPECT_EQ(shares(original), 1u);
}

TEST(ValueSharing, TheLastOwnerKeepsTheContents) {
  std::optional<Value> original = sample();
  const Value copy = *original;
  original.reset();
  EXPECT_EQ(shares(copy), 1u);
  EXPECT_EQ(describe(copy), describe(sample()));
}

TEST(ValueSharing, AKeyedWriteCopiesASharedObjectOnceAndOnlyThatLevel) {
  const Value original = sample();
  Value copy = original;
  copy["number"] = 6;
  EXPECT_NE(containerOf(copy), containerOf(original));
  EXPECT_EQ(shares(original), 1u);
  EXPECT_EQ(shares(copy), 1u);
  EXPECT_EQ(containerOf(member(copy, "nested")), containerOf(member(original, "nested")));
  EXPECT_EQ(containerOf(member(copy, "list")), containerOf(member(original, "list")));
  EXPECT_EQ(shares(member(original, "nested")), 2u);

  const void* own = containerOf(copy);
  copy["number"] = 7;
  EXPECT_EQ(containerOf(copy), own);
}

TEST(ValueSharing, AWriteThroughTwoLevelsCopiesBoth) {
  const Value original = sample();
  Value copy = original;
  copy["nested"]["text"] = "changed";
  EXPECT_EQ(describe(original), describe(sample()));
  EXPECT_EQ(describe(copy["nested"]), "{text:s\"changed\"}");
  EXPECT_EQ(shares(member(original, "nested")), 1u);
  EXPECT_EQ(containerOf(member(copy, "list")), containerOf(member(original, "list")));
}

TEST(ValueSharing, AnUnsharedObjectIsWrittenInPlace) {
  Value value = sample();
  const void* before = containerOf(value);
  Value& number = value["number"];
  number = 6;
  value["another"] = 1;
  EXPECT_EQ(containerOf(value), before);
  EXPECT_EQ(&value["number"], &number);
}

// Kept: the look-up alone unshares, even if nothing is written afterwards.
TEST(ValueSharing, AMutableLookUpAlreadyUnshares) {
  const Value original = sample();
  Value copy = original;
  EXPECT_EQ(copy["number"].asInt(), 5);
  EXPECT_NE(containerOf(copy), containerOf(original));
  EXPECT_EQ(describe(copy), describe(original));
}

// The hazard that the class comment warns of: only `[]` unshares, not the assignment after it.
TEST(ValueSharing, AReferenceFromBeforeACopyWritesIntoTheCopyToo) {
  Value value = sample();
  Value& number = value["number"];
  const Value copy = value;
  number = 6;
  EXPECT_EQ(copy["number"].asInt(), 6);
}

TEST(ValueSharing, ReadingDoesNotUnshare) {
  const Value original = sample();
  const Value copy = original;
  EXPECT_EQ(copy["number"].asInt(), 5);
  EXPECT_EQ(copy["list"][0].asInt(), 1);
  EXPECT_EQ(copy["missing"].size() + copy[3].size() + copy.keys().size(), 3u);
  EXPECT_EQ(containerOf(copy), containerOf(original));
}

TEST(ValueSharing, ArraysAreCopiedOnAMutableIndexAndOnAppend) {
  const Value original(std::vector<Value>{1, sample(), 3});
  Value indexed = original;
  indexed[0] = 2;
  Value grown = original;
  grown.append(4);
  Value extended = original;
  extended[3] = 4;
  EXPECT_EQ(original[0].asInt(), 1);
  EXPECT_EQ(original.size(), 3u);
  EXPECT_EQ(indexed.size(), 3u);
  EXPECT_EQ(describe(grown), describe(extended));
  EXPECT_EQ(shares(original), 1u);
  EXPECT_EQ(containerOf(original[1]), containerOf(static_cast<const Value&>(grown)[1]));
  EXPECT_EQ(shares(original[1]), 4u);
}

TEST(ValueSharing, SetTypeToTheSameTypeKeepsSharing) {
  const Value original = sample();
  Value copy = original;
  copy.setType(Value::Object);
  EXPECT_EQ(containerOf(copy), containerOf(original));
}

TEST(ValueSharing, SetTypeToAnotherTypeLeavesTheOtherCopies) {
  const Value original = sample();
  Value copy = original;
  copy.setType(Value::Array);
  EXPECT_EQ(describe(original), describe(sample()));
  EXPECT_EQ(shares(original), 1u);
}

}  // namespace
