// SPDX-License-Identifier: MIT
// The quick comparison of keys, and the key that a member keeps, against the standard string.
#include "pocketjson/key_order.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "pocketjson/member_key.h"

using pocketjson::eightBytes;
using pocketjson::frontOf;
using pocketjson::KeyLess;
using pocketjson::MemberKey;
using pocketjson::SoughtFront;
using pocketjson::SoughtKey;

namespace {

// The two ways in which the tree compares: two members, and a member with a sought key.
bool keyBefore(std::string_view left, std::string_view right) {
  const KeyLess less;
  const bool result = less(MemberKey(left), MemberKey(right));
  EXPECT_EQ(less(MemberKey(left), SoughtKey(right)), result);
  return result;
}

bool sameKey(std::string_view left, std::string_view right) {
  const MemberKey key(left);
  return key.beginsLike(SoughtFront(right)) && key.hasRestOf(right);
}

TEST(KeyOrder, IsByBytesWithTheShorterFirst) {
  EXPECT_TRUE(keyBefore("", "a"));
  EXPECT_FALSE(keyBefore("a", ""));
  EXPECT_FALSE(keyBefore("", ""));
  EXPECT_TRUE(keyBefore("B", "a"));
  EXPECT_TRUE(keyBefore("a", "ab"));
  EXPECT_TRUE(keyBefore("z", "\x80"));
  EXPECT_TRUE(keyBefore("12345678", "123456789"));
  EXPECT_TRUE(keyBefore("IsUsedLamb", "IsUsedMeasurementLmin"));
}

TEST(KeyOrder, AMillionPairsAgreeWithTheStandardString) {
  std::mt19937_64 random(20240607);
  std::string left;
  std::string right;
  for (int i = 0; i < 1000000; ++i) {
    left.resize(random() % 28);
    for (char& byte : left) byte = static_cast<char>(random() % 3 == 0 ? random() : 'a');
    right = left;
    right.resize(random() % 28, 'a');
    if (!right.empty() && random() % 2 == 0)
      right[random() % right.size()] = static_cast<char>(random());
    ASSERT_EQ(keyBefore(left, right), std::less<std::string>()(left, right))
        << left << "|" << right;
    ASSERT_EQ(keyBefore(right, left), std::less<std::string>()(right, left))
        << left << "|" << right;
    ASSERT_EQ(sameKey(left, right), left == right) << left << "|" << right;
  }
}

TEST(KeyOrder, ZerosInsideAKeyAreBytesLikeOthers) {
  using namespace std::string_view_literals;
  const std::vector<std::string_view> rising = {""sv,
                                                "\0"sv,
                                                "\0\0"sv,
                                                "\0a"sv,
                                                "ab"sv,
                                                "ab\0"sv,
                                                "ab\0\0\0\0\0\0"sv,
                                                "ab\0\0\0\0\0\0\0"sv,
                                                "ab\0\0\0\0\0\0a"sv,
                                                "ab\1"sv,
                                                "abcdefgh"sv,
                                                "abcdefgh\0"sv,
                                                "abcdefgh\xff"sv};
  for (std::size_t i = 0; i < rising.size(); ++i) {
    for (std::size_t k = 0; k < rising.size(); ++k) {
      EXPECT_EQ(keyBefore(rising[i], rising[k]), i < k) << i << " " << k;
      EXPECT_EQ(sameKey(rising[i], rising[k]), i == k) << i << " " << k;
    }
  }
}

TEST(KeyOrder, ASearchEndsAtTheKeyAmongMembersThatBeginAlike) {
  std::map<MemberKey, int, KeyLess> members;
  for (int i = 0; i < 400; i += 2) {
    members.emplace(MemberKey("member number " + std::to_string(1000 + i)), i);
  }
  for (int i = 0; i < 400; ++i) {
    const std::string name = "member number " + std::to_string(1000 + i);
    const auto place = members.lower_bound(SoughtKey(name));
    EXPECT_EQ(place != members.end() && place->first.text() == name, i % 2 == 0) << name;
    EXPECT_EQ(members.lower_bound(SoughtFront(name)), members.begin());
  }
}

TEST(KeyOrder, ABeginningIsThatOfTheNamePaddedWithZeros) {
  const std::string name = "\xFF" "bcdefgh-more";
  for (std::size_t length = 0; length <= name.size(); ++length) {
    std::string padded = name.substr(0, length);
    padded.resize(8, '\0');
    EXPECT_EQ(frontOf(name.substr(0, length)), eightBytes(padded.data())) << length;
  }
}

TEST(MemberKey, KeepsNamesOfEveryLengthAndSoDoItsCopies) {
  std::string name;
  for (int length = 0; length < 70; ++length) {
    const MemberKey key(name);
    EXPECT_EQ(key.text(), name);
    const MemberKey copy(key);
    EXPECT_EQ(copy.text(), name);
    EXPECT_TRUE(sameKey(copy.text(), name));
    // Up to 24 bytes lie inside.
    const auto* inside = reinterpret_cast<const char*>(&copy);
    const bool isInside = copy.text().data() >= inside && copy.text().data() < inside + sizeof copy;
    EXPECT_EQ(isInside, length <= 24) << length;
    name += static_cast<char>('a' + length % 26);
  }
}

}  // namespace
