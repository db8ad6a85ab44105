// SPDX-License-Identifier: MIT
// Dropping values: however deep, on a small stack, and without memory.
#include <gtest/gtest.h>
#include <pocketjson/value.h>
#include <pthread.h>

#include <functional>

#include "counting_new.h"
#include "describe.h"

using pocketjson::Value;

namespace {

constexpr int kDepth = 1000000;
constexpr std::size_t kSmallStack = 128 * 1024;

void* call(void* work) {
  (*static_cast<std::function<void()>*>(work))();
  return nullptr;
}

void onASmallStack(std::function<void()> work) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kSmallStack), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, call, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

using Wrap = std::function<Value(Value, int level)>;

Value inArray(Value inner, int) {
  Value outer;
  outer.append(std::move(inner));
  return outer;
}

Value inObject(Value inner, int) {
  Value outer;
  outer["k"] = std::move(inner);
  return outer;
}

// The nested one comes neither first nor alone.
Value amongOthers(Value inner, int level) {
  Value outer;
  if (level % 3 == 0) {
    outer["a"] = "text";
    outer["b"] = std::move(inner);
    outer["c"].setType(Value::Array);
  } else if (level % 3 == 1) {
    outer[0] = 1;
    outer[1][0][0] = "side branch";
    outer[2] = std::move(inner);
    outer[3]["x"]["y"] = 2;
  } else {
    outer["a"] = inner;
    outer["b"] = std::move(inner);  // two shares of the same
  }
  return outer;
}

// Each level has all shares of the next one, and two of them.
Value inPairs(Value inner, int) {
  Value outer;
  outer["a"] = inner;
  outer["b"] = std::move(inner);
  return outer;
}

Value nest(const Wrap& wrap, int levels) {
  Value value = "innermost";
  for (int level = 0; level < levels; ++level) value = wrap(std::move(value), level);
  return value;
}

class ValueDestruction : public testing::TestWithParam<Value (*)(Value, int)> {};

TEST_P(ValueDestruction, AMillionLevelsOnASmallStackWithoutMemory) {
  const long long alive = counting::alive;
  onASmallStack([] {
    Value value = nest(GetParam(), kDepth);
    const long long before = counting::allocations;
    const counting::FailAfter nothing(0);
    value = nullptr;
    EXPECT_EQ(counting::allocations, before);
  });
  EXPECT_LE(counting::alive, alive + 1);  // the thread's own record may stay cached
}

TEST_P(ValueDestruction, SetTypeAndAKeyedWriteDropDeepNestsToo) {
  onASmallStack([] {
    Value value = nest(GetParam(), kDepth / 5);
    value.setType(Value::Bool);
    value = nest(GetParam(), kDepth / 5);
    value["x"][0] = 1;
    Value list = nest(GetParam(), kDepth / 5);
    list.setType(Value::String);
    list["x"] = 1;
    EXPECT_EQ(list.size(), 1u);
  });
}

TEST_P(ValueDestruction, WhatIsSharedElsewhereStaysWhole) {
  const Value kept = nest(GetParam(), 10);
  const std::string before = describe(kept);
  for (int around : {0, 1, 2, 7, 1000}) {
    Value outer = kept;
    for (int level = 0; level < around; ++level) outer = GetParam()(std::move(outer), level);
    outer = nullptr;
    ASSERT_EQ(describe(kept), before) << around;
    ASSERT_EQ(shares(kept), 1u) << around;
  }
}

std::string nameOf(const testing::TestParamInfo<Value (*)(Value, int)>& info) {
  const char* const names[] = {"InArray", "InObject", "AmongOthers", "InPairs"};
  return names[info.index];
}

INSTANTIATE_TEST_SUITE_P(Nests, ValueDestruction,
                         testing::Values(&inArray, &inObject, &amongOthers, &inPairs), nameOf);

TEST(ValueDestruction, WideTreesLeaveNothingBehind) {
  const long long alive = counting::alive;
  {
    Value tree;
    for (std::size_t i = 0; i < 50; ++i) {
      for (std::size_t j = 0; j < 50; ++j) {
        tree[i][j]["key"] = std::string(40, 'x');
        tree[i][j]["list"].append(tree[i][j]["key"]);
      }
    }
    const Value copy = tree;
    tree[0][0]["key"] = tree;
  }
  EXPECT_EQ(counting::alive, alive);
}

}  // namespace
