// SPDX-License-Identifier: MIT
// What fails, and what does not. (Memory exhaustion: value_allocation_test.cpp.)
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <stdexcept>
#include <thread>

#include "describe.h"

using pocketjson::Value;

namespace {

#ifdef POCKETJSON_WITHOUT_POINTER_OVERFLOW
constexpr bool kWithoutPointerOverflow = true;
#else
constexpr bool kWithoutPointerOverflow = false;
#endif

TEST(ValueFailures, ATypeMismatchIsNeverReported) {
  std::map<std::string, Value> members{{"k", 1}};
  for (const Value& value : {Value(), Value(true), Value(3), Value(0.5), Value("text"),
                             Value(std::vector<Value>{1}), Value(members)}) {
    EXPECT_NO_THROW({
      value["key"].asInt();
      value[7].asDouble();
      value.asBool();
      value.asInt();
      value.asDouble();
      value.asString();
      value.size();
      value.keys();
    });
    Value keyed = value;
    EXPECT_NO_THROW(keyed["key"] = 1);
    EXPECT_EQ(keyed.type(), Value::Object);
    Value listed = value;
    EXPECT_NO_THROW(listed.append(1));
    EXPECT_EQ(listed.type(), Value::Array);
  }
}

TEST(ValueFailures, ATextLongerThanAnyStringRaisesTheStandardError) {
  if (kWithoutPointerOverflow) GTEST_SKIP() << "the sanitizer would stop at the length itself";
  const std::string_view endless("x", std::string().max_size() + 1);
  EXPECT_THROW(Value{endless}, std::length_error);
}

TEST(ValueFailures, AKeyLongerThanAnyStringRaisesTheStandardErrorAndChangesNothing) {
  if (kWithoutPointerOverflow) GTEST_SKIP() << "the sanitizer would stop at the length itself";
  const std::string_view endless("x", std::string().max_size() + 1);
  Value value = "text";
  EXPECT_THROW(value[endless], std::length_error);
  EXPECT_EQ(describe(value), "s\"text\"");
}

TEST(ValueFailures, BadNumberTextsNeverThrow) {
  for (const char* text : {"", "x", "1e999999999", "0x", "nan(", "\xFF", "."}) {
    EXPECT_NO_THROW(Value(text).asDouble());
    EXPECT_NO_THROW(Value(text).asInt());
  }
  EXPECT_NO_THROW(Value(std::string(100000, '9')).asDouble());
  EXPECT_NO_THROW(Value(std::string(100000, '9')).asInt());
}

// Each thread has values of its own; only the null value is common to all.
TEST(ValueConcurrency, TheNullValueMayBeReadByAllThreads) {
  std::vector<std::thread> threads;
  std::vector<const Value*> seen(8);
  for (const Value*& null : seen) {
    threads.emplace_back([&null] {
      const Value own("text");
      null = &own["missing"];
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const Value* null : seen) EXPECT_EQ(null, &Value::nullValue());
}

}  // namespace
