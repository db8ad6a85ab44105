// SPDX-License-Identifier: MIT
// The quick comparison of keys against the standard one.
#include "pocketjson/key_order.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using pocketjson::keyBefore;
using pocketjson::sameKey;

namespace {

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

}  // namespace
