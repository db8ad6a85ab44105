// SPDX-License-Identifier: MIT
// The layout and the numbers that hosts have compiled in, and what must not compile.
#include <gtest/gtest.h>
#include <pocketjson/value.h>

#include <cstring>
#include <memory>
#include <type_traits>

#include "describe.h"

using pocketjson::Value;

namespace {

static_assert(sizeof(Value) == 16 && alignof(Value) == 8);
static_assert(std::is_same_v<std::underlying_type_t<Value::Type>, std::uint32_t>);
static_assert(Value::Null == 0 && Value::Bool == 1 && Value::Int == 2 && Value::Double == 4);
static_assert(Value::String == 16 && Value::Object == 32 && Value::Array == 64);
static_assert(Value::kContainerMask == (Value::String | Value::Object | Value::Array));
static_assert(Value::kContainerMask == 112);
static_assert(std::is_same_v<decltype(Value::AbstractContainer::refCount), std::uint32_t>);
static_assert(std::has_virtual_destructor_v<Value::AbstractContainer>);

static_assert(std::is_nothrow_default_constructible_v<Value>);
static_assert(std::is_nothrow_copy_constructible_v<Value>);
static_assert(std::is_nothrow_move_constructible_v<Value>);
static_assert(std::is_nothrow_assignable_v<Value&, double>);
static_assert(std::is_nothrow_swappable_v<Value>);

template <typename... Sources>
inline constexpr bool kAllAccepted = (... && (std::is_convertible_v<Sources, Value> &&
                                              std::is_assignable_v<Value&, Sources>));
template <typename... Sources>
inline constexpr bool kAllRejected = (... && !(std::is_constructible_v<Value, Sources> ||
                                               std::is_assignable_v<Value&, Sources>));

static_assert(kAllAccepted<bool, int, long long, double, float, const char*, char*, std::string,
                           std::string_view, std::nullptr_t, std::vector<Value>,
                           std::map<std::string, Value>, const char (&)[5], char (&)[5]>);
static_assert(kAllAccepted<signed char, unsigned char, short, unsigned short, unsigned int, long,
                           unsigned long, unsigned long long, std::size_t, std::int64_t>);

struct Thing {
  int member = 0;
};
enum class Scoped { kOne };
static_assert(kAllRejected<void*, const void*, int*, const Thing*, Value*, void (*)(), int Thing::*,
                           void (Thing::*)(), std::unique_ptr<int>, const wchar_t*, int (&)[3]>);
static_assert(kAllRejected<char, wchar_t, char8_t, char16_t, char32_t, long double>);
static_assert(kAllRejected<Value::Type, Scoped, Thing>);

template <typename Owner, typename Key>
concept Indexable = requires(Owner owner, Key key) {
  owner[key];
};
static_assert(Indexable<Value&, int> && Indexable<const Value&, int>);
static_assert(Indexable<Value&, unsigned long long> && Indexable<const Value&, short>);
static_assert(Indexable<Value&, const char*> && Indexable<const Value&, char*>);
static_assert(Indexable<Value&, std::string> && Indexable<const Value&, std::string_view>);
static_assert(!Indexable<Value&, std::nullptr_t> && !Indexable<const Value&, std::nullptr_t>);
static_assert(!Indexable<Value&, bool> && !Indexable<const Value&, bool>);
static_assert(!Indexable<Value&, char> && !Indexable<const Value&, char>);
static_assert(!Indexable<Value&, double> && !Indexable<const Value&, double>);
static_assert(!Indexable<Value&, void*> && !Indexable<const Value&, Thing*>);

std::uint32_t tagOf(const Value& value) {
  std::uint32_t tag = 0;
  std::memcpy(&tag, &value, sizeof tag);
  return tag;
}

TEST(ValueLayout, TheTagComesFirstAndThePayloadAtEight) {
  EXPECT_EQ(tagOf(Value()), 0u);
  EXPECT_EQ(payloadOf(Value()), 0u);
  EXPECT_EQ(tagOf(Value(true)), 1u);
  EXPECT_EQ(payloadOf(Value(true)), 1u);
  EXPECT_EQ(payloadOf(Value(false)), 0u);
  EXPECT_EQ(tagOf(Value(5)), 2u);
  EXPECT_EQ(payloadOf(Value(5)), 5u);
  EXPECT_EQ(tagOf(Value(1.0)), 4u);
  EXPECT_EQ(payloadOf(Value(1.0)), 0x3FF0000000000000u);
  EXPECT_EQ(tagOf(Value("a")), 16u);
  EXPECT_EQ(tagOf(Value(std::map<std::string, Value>())), 32u);
  EXPECT_EQ(tagOf(Value(std::vector<Value>())), 64u);
}

TEST(ValueLayout, ASmallIntIsSignExtendedToSixtyFourBits) {
  EXPECT_EQ(payloadOf(Value(-2)), 0xFFFFFFFFFFFFFFFEu);
}

TEST(ValueLayout, ABoolAfterANumberLeavesNoRestOfIt) {
  Value value = -1;
  value = true;
  EXPECT_EQ(payloadOf(value), 1u);
}

TEST(ValueLayout, AContainerIsBornWithOneShareAndAVirtualDestructor) {
  for (Value::Type kind : {Value::String, Value::Object, Value::Array}) {
    Value value;
    value.setType(kind);
    ASSERT_NE(containerOf(value), nullptr);
    EXPECT_EQ(containerOf(value)->refCount, 1u);
    // The count follows the pointer to the virtual functions.
    EXPECT_EQ(reinterpret_cast<const char*>(&containerOf(value)->refCount) -
                  reinterpret_cast<const char*>(containerOf(value)),
              static_cast<std::ptrdiff_t>(sizeof(void*)));
  }
}

TEST(ValueLayout, ZeroIsAnIndexAndNotANullKey) {
  Value value;
  value[0] = "first";
  EXPECT_EQ(value.type(), Value::Array);
  const Value& read = value;
  EXPECT_EQ(read[0].asString(), "first");
}

}  // namespace
