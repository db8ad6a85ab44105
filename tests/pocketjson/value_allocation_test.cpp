// SPDX-License-Identifier: MIT
// What allocates and what does not, and what is left when an allocation fails.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <functional>
#include <map>
#include <new>
#include <string>

#include "counting_new.h"
#include "describe.h"

using pocketjson::Value;

namespace {

constexpr const char* kLongText = "a text that does not fit into the string object itself";

Value sample() {
  Value value;
  value["measureBacklightResponse"] = true;
  value["ColorTemperatureType"] = kLongText;
  value["nested"]["list"][0] = "element";
  value["nested"]["number"] = 1;
  return value;
}

long long allocationsOf(const std::function<void()>& work) {
  const long long before = counting::allocations;
  work();
  return counting::allocations - before;
}

TEST(ValueAllocation, TheCounterSeesTheLibrary) {
  Value value;
  EXPECT_GE(allocationsOf([&] { value.setType(Value::Object); }), 1);
}

TEST(ValueAllocation, ReadingByLiteralViewAndStringAllocatesNothing) {
  const Value value = sample();
  const std::string key = "measureBacklightResponse";
  EXPECT_EQ(allocationsOf([&] {
              for (int i = 0; i < 100; ++i) {
                EXPECT_TRUE(value["measureBacklightResponse"].asBool());
                EXPECT_TRUE(value[key].asBool());
                EXPECT_TRUE(value[std::string_view(key)].asBool());
                EXPECT_EQ(value["no such key, and a rather long one"].asInt(3), 3);
                EXPECT_EQ(value["nested"]["number"].asDouble(), 1.0);
                EXPECT_EQ(value["nested"]["list"][0].size(), 7u);
                EXPECT_EQ(value["nested"][5].asInt(4), 4);
              }
            }),
            0);
}

TEST(ValueAllocation, CopyingMovingAndDestroyingAllocatesNothing) {
  Value value = sample();
  EXPECT_EQ(allocationsOf([&] {
              const Value copy = value;
              Value assigned;
              assigned = copy;
              Value moved = std::move(assigned);
              swap(moved, value);
              value = Value();
            }),
            0);
}

TEST(ValueAllocation, ScalarsAllocateNothing) {
  Value value;
  EXPECT_EQ(allocationsOf([&] {
              value = true;
              value = 1;
              value = 2LL;
              value = 0.5;
              value = nullptr;
              value.setType(Value::Double);
            }),
            0);
}

TEST(ValueAllocation, AKeyedWriteToAnExistingMemberAllocatesNothing) {
  Value value = sample();
  EXPECT_EQ(allocationsOf([&] { value["nested"]["number"] = 2; }), 0);
}

TEST(ValueAllocation, AnObjectsFirstMemberLiesInsideIt) {
  Value value;
  EXPECT_EQ(allocationsOf([&] { value["calibrationTarget"]["lmin"] = 0.5; }), 2);
  EXPECT_EQ(allocationsOf([&] { value["calibrationTarget"]["lmax"] = 300.0; }), 1);
  Value copy = value;
  EXPECT_EQ(allocationsOf([&] { copy["calibrationTarget"]["lmin"] = 0.25; }), 3);
  value = Value();
  EXPECT_EQ(
      describe(copy),
      describe(std::map<std::string, Value>{
          {"calibrationTarget", std::map<std::string, Value>{{"lmax", 300.0}, {"lmin", 0.25}}}}));
}

// The member's place inside the object is gone then; the next one needs memory.
TEST(ValueAllocation, AFirstMemberThatCannotBeMadeLeavesTheObjectUsable) {
  const std::string key(100, 'k');
  Value value;
  value.setType(Value::Object);
  {
    const counting::FailAfter failing(0);
    EXPECT_THROW(value[key], std::bad_alloc);
  }
  EXPECT_EQ(value.size(), 0u);
  value[key] = 1;
  value["b"] = 2;
  EXPECT_EQ(value[key].asInt() + value["b"].asInt(), 3);
}

TEST(ValueAllocation, ReadingNumbersFromPlainTextsAllocatesNothing) {
  const Value real = "0.0000000000000000000000000001234567890123456789";
  const Value whole = "                                 0x1F";
  EXPECT_EQ(allocationsOf([&] {
              EXPECT_GT(real.asDouble(), 0.0);
              EXPECT_EQ(whole.asInt(), 31);
            }),
            0);
}

// Runs the operation on a value with the n-th allocation failing, for every n until it passes.
// After each failure the value, and a copy that shares with it, must be as they were.
int failEachAllocation(const std::function<Value()>& make, bool shared,
                       const std::function<void(Value&)>& operation) {
  for (int n = 0;; ++n) {
    Value value = make();
    const Value other = shared ? value : Value();
    const std::string before = describe(value);
    const std::string otherBefore = describe(other);
    const void* container = containerOf(value);
    const std::uint32_t count = shares(value);
    const long long alive = counting::alive;
    try {
      const counting::FailAfter failing(n);
      operation(value);
    } catch (const std::bad_alloc&) {
      EXPECT_EQ(counting::alive, alive) << "leak after " << n;
      EXPECT_EQ(describe(value), before) << n;
      EXPECT_EQ(containerOf(value), container) << n;
      EXPECT_EQ(shares(value), count) << n;
      EXPECT_EQ(describe(other), otherBefore) << n;
      continue;
    }
    EXPECT_EQ(describe(other), otherBefore);
    return n;
  }
}

struct Operation {
  const char* name;
  std::function<void(Value&)> run;
};

const Operation kOperations[] = {
    {"assign text", [](Value& value) { value = kLongText; }},
    {"assign string", [](Value& value) { value = std::string_view(kLongText); }},
    {"setType string", [](Value& value) { value.setType(Value::String); }},
    {"setType object", [](Value& value) { value.setType(Value::Object); }},
    {"setType array", [](Value& value) { value.setType(Value::Array); }},
    {"new key", [](Value& value) { value["a new key that needs memory of its own"]; }},
    {"old key", [](Value& value) { value["nested"]; }},
    {"append", [](Value& value) { value.append(1); }},
    {"append itself", [](Value& value) { value.append(value); }},
    {"first index", [](Value& value) { value[0]; }},
    {"next index", [](Value& value) { value[value.type() == Value::Array ? value.size() : 0]; }},
    {"its own member", [](Value& value) { value = static_cast<const Value&>(value)["nested"]; }},
    {"double to text", [](Value& value) { value = value.asString(kLongText); }},
};

const std::pair<const char*, Value (*)()> kStarts[] = {
    {"null", [] { return Value(); }},
    {"number", [] { return Value(0.1); }},
    {"text", [] { return Value(kLongText); }},
    {"object", sample},
    {"array",
     [] {
       return Value(std::vector<Value>{1, sample(), kLongText});
     }},
};

TEST(ValueFailures, EveryAllocationThatFailsLeavesTheValueAsItWas) {
  int failures = 0;
  for (const auto& [start, make] : kStarts) {
    for (const Operation& operation : kOperations) {
      for (bool shared : {false, true}) {
        SCOPED_TRACE(std::string(start) + ", " + operation.name + (shared ? ", shared" : ""));
        failures += failEachAllocation(make, shared, operation.run);
      }
    }
  }
  EXPECT_GT(failures, 150) << "the fuse did not reach the library";
}

TEST(ValueFailures, AConstructorThatFailsLeavesNothingBehind) {
  const std::vector<Value> elements{1, kLongText, sample()};
  const std::map<std::string, Value> members{{kLongText, 1}, {"b", sample()}, {"c", 0.5}};
  const std::string text = kLongText;
  const std::function<void()> makers[] = {
      [] { Value value(kLongText); },      [&] { Value value(text); },
      [&] { Value value(elements); },      [&] { Value value(members); },
      [] { Value().asString(kLongText); }, [] { Value("000,1").asString(); },
  };
  for (const auto& make : makers) {
    const long long alive = counting::alive;
    for (int n = 0;; ++n) {
      try {
        const counting::FailAfter failing(n);
        make();
        break;
      } catch (const std::bad_alloc&) {
        EXPECT_EQ(counting::alive, alive);
      }
    }
    EXPECT_EQ(counting::alive, alive);
  }
}

TEST(ValueFailures, AFailureInTheMiddleOfANestedWriteKeepsTheOuterLevelWhole) {
  for (int n = 0; n < 20; ++n) {
    Value value = sample();
    const Value copy = value;
    bool failed = false;
    try {
      const counting::FailAfter failing(n);
      value["nested"]["another key that needs memory"]["lmin"] = kLongText;
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    EXPECT_EQ(describe(copy), describe(sample()));
    if (!failed) {
      EXPECT_GT(n, 4);
      return;
    }
    EXPECT_EQ(static_cast<const Value&>(value)["ColorTemperatureType"].asString(), kLongText);
  }
  FAIL() << "never passed";
}

}  // namespace
