// SPDX-License-Identifier: MIT
#include "metrics/limits.h"

#include <gtest/gtest.h>

#include <set>

#include "metrics/verdict.h"

namespace kovctl {
namespace {

TEST(Limits, EveryNumberNamesItsSource) {
  std::set<std::string_view> names;
  for (const LimitsProfile& profile : limitsProfiles()) {
    EXPECT_TRUE(names.insert(profile.name).second) << profile.name;
    EXPECT_EQ(findLimits(profile.name), &profile);
    EXPECT_FALSE(profile.limits.empty());
    std::set<Quantity> quantities;
    for (const Limit& limit : profile.limits) {
      EXPECT_GT(limit.source.size(), 40U) << profile.name;
      EXPECT_GT(limit.value, 0.0);
      EXPECT_TRUE(quantities.insert(limit.quantity).second) << "one limit for each quantity";
    }
  }
  EXPECT_NE(findLimits(kDefaultLimits), nullptr);
  EXPECT_EQ(findLimits("nothing"), nullptr);
}

TEST(Limits, BearNoStandardsNameThatTheirSourcesDoNotGive) {
  for (const LimitsProfile& profile : limitsProfiles()) {
    EXPECT_FALSE(profile.notJudged.empty()) << profile.name;
    const auto titleSays = [&](std::string_view text) {
      return profile.title.find(text) != std::string_view::npos;
    };
    EXPECT_FALSE(titleSays("Report 270") || titleSays("TG-18")) << profile.title;
    bool judgesGrayScale = false;
    for (const Limit& limit : profile.limits) {
      EXPECT_EQ(limit.source.rfind("of no standard", 0) == 0, limit.isOwn);
      judgesGrayScale |= limit.quantity == Quantity::kContrastResponse;
      const auto sourceSays = [&](std::string_view text) {
        return limit.source.find(text) != std::string_view::npos;
      };
      if (limit.isOwn) continue;
      EXPECT_TRUE(!titleSays("ACR") || (titleSays("summaries") && sourceSays("ACR")));
      EXPECT_TRUE(!titleSays("DIN") || (titleSays("QS-RL") && titleSays("quoted")));
    }
    EXPECT_NE(judgesGrayScale, titleSays("Informative, never a pass")) << profile.title;
  }
}

TEST(Limits, HaveTheSourcesNumbers) {
  const auto value = [](std::string_view profile, Quantity quantity) {
    for (const Limit& limit : findLimits(profile)->limits)
      if (limit.quantity == quantity) return limit.value;
    return -1.0;
  };
  EXPECT_EQ(value("diagnostic", Quantity::kContrastResponse), 0.10);
  EXPECT_EQ(value("other", Quantity::kContrastResponse), 0.20);
  EXPECT_EQ(value("diagnostic", Quantity::kLuminanceRatio), 250.0);
  EXPECT_EQ(value("other", Quantity::kLuminanceRatio), 100.0);
  for (const char* profile : {"diagnostic", "other"})
    EXPECT_EQ(value(profile, Quantity::kAmbientRatio), 2.0 / 3.0);
  EXPECT_EQ(value("acr-diagnostic", Quantity::kContrastResponse), 0.10);
  EXPECT_EQ(value("acr-other", Quantity::kContrastResponse), 0.20);
  EXPECT_EQ(value("acr-diagnostic", Quantity::kMaximumLuminance), 350.0);
  EXPECT_EQ(value("acr-other", Quantity::kMaximumLuminance), 250.0);
  for (const char* profile : {"diagnostic", "other", "acr-diagnostic", "acr-other"}) {
    EXPECT_EQ(value(profile, Quantity::kWhiteLevel), 0.10);
    EXPECT_EQ(value(profile, Quantity::kBlackLevel), 0.20);
    EXPECT_EQ(value(profile, Quantity::kWhitePoint), 0.01);
  }
  EXPECT_EQ(value("din-6868-157-dental-rk5", Quantity::kMaximumLuminance), 200.0);
  EXPECT_EQ(value("din-6868-157-dental-rk6", Quantity::kMaximumLuminance), 300.0);
  EXPECT_EQ(value("din-6868-157-dental-rk5", Quantity::kLuminanceRatio), 100.0);
  EXPECT_EQ(value("din-6868-157-dental-rk6", Quantity::kLuminanceRatio), 100.0);
}

TEST(Limits, AreWrittenForPeople) {
  EXPECT_EQ(formatLimit({Quantity::kContrastResponse, Bound::kAtMost, 0.1, ""}), "≤ 10 %");
  EXPECT_EQ(formatLimit({Quantity::kLuminanceRatio, Bound::kAtLeast, 250, ""}), "≥ 250");
  EXPECT_EQ(formatLimit({Quantity::kMaximumLuminance, Bound::kAtLeast, 250, ""}), "≥ 250 cd/m²");
  EXPECT_EQ(formatLimit({Quantity::kAmbientRatio, Bound::kAtMost, 2.0 / 3.0, ""}), "≤ 0.667");
  EXPECT_EQ(formatValue(Quantity::kContrastResponse, 0.0341), "3.41 %");
  EXPECT_EQ(formatValue(Quantity::kWhitePoint, 0.00214), "0.0021");
}

}  // namespace
}  // namespace kovctl
