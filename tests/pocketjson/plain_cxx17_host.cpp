// SPDX-License-Identifier: MIT
// What a host writes, compiled as C++17. The header comes first: it must need nothing before it.
#include <pocketjson/value.h>

#include <gtest/gtest.h>

static_assert(__cplusplus < 202002L, "this file stands for an older host");

TEST(ValueInACxx17Host, BuildsAndReadsATarget) {
  pocketjson::Value target;
  target["LmaxValue"] = 250.0;
  target["numberOfGraylevels"] = 52u;
  target["ColorTemperatureType"] = "K6500";
  target["IsUsedLamb"] = true;
  pocketjson::Value curve;
  curve[0] = 0.5;
  curve.append("1.5");
  target["curve"] = curve;

  const pocketjson::Value& read = target;
  EXPECT_EQ(read["LmaxValue"].asDouble(), 250.0);
  EXPECT_EQ(read["numberOfGraylevels"].asInt(), 52);
  EXPECT_EQ(read["ColorTemperatureType"].asString(), "K6500");
  EXPECT_TRUE(read["IsUsedLamb"].asBool());
  EXPECT_EQ(read["curve"][1].asDouble(), 1.5);
  EXPECT_EQ(read["missing"].asInt(7), 7);
}

// With the right side evaluated first (C++17), a value can be put into itself.
TEST(ValueInACxx17Host, PutsAValueIntoItselfWithoutACycle) {
  pocketjson::Value value;
  value["a"] = 1;
  value["self"] = value;
  value["deep"]["self"] = value;
  const pocketjson::Value& read = value;
  EXPECT_EQ(read["self"].size(), 1u);
  EXPECT_EQ(read["deep"]["self"].size(), 2u);
  value = value["self"];
  EXPECT_EQ(read["a"].asInt(), 1);
  EXPECT_EQ(read.size(), 1u);
}
