// SPDX-License-Identifier: MIT
#include "metrics/verdict.h"

#include <gtest/gtest.h>

#include <set>

#include "exact_record.h"

namespace kovctl {
namespace {

using test::exact;
using test::of;
using test::verdictOn;

TEST(Verdict, PassesWhatIsWithinAndNamesTheReason) {
  const Verdict verdict = verdictOn(exact(15));
  EXPECT_EQ(verdict.outcome, Outcome::kPass);
  EXPECT_EQ(verdict.reason, "All 3 limits that apply are met.");
  ASSERT_EQ(verdict.criteria.size(), static_cast<std::size_t>(kQuantities));
}

TEST(Verdict, ALimitMetExactlyIsMet) {
  RunRecord record = exact(15);
  record.limitsProfile = "din-6868-157-dental-rk5";
  record.patches.back().luminance = 200.0;
  EXPECT_EQ(of(verdictOn(record), Quantity::kMaximumLuminance).outcome, Outcome::kPass);
  record.patches.back().luminance = 199.999;
  EXPECT_EQ(of(verdictOn(record), Quantity::kMaximumLuminance).outcome, Outcome::kFail);
}

TEST(Verdict, CanceledAndFailedRunsAreNotJudged) {
  RunRecord record = exact(15);
  record.result.canceled = true;
  EXPECT_EQ(verdictOn(record).outcome, Outcome::kNotApplicable);
  record.result.canceled = false;
  record.result.error = RunError{1, "E", "text"};
  EXPECT_EQ(verdictOn(record).outcome, Outcome::kNotApplicable);
}

TEST(Verdict, WithoutAKnownProfileNothingIsJudged) {
  RunRecord record = exact(15);
  for (const char* name : {"", "tg-9000"}) {
    record.limitsProfile = name;
    EXPECT_EQ(verdictOn(record).outcome, Outcome::kNotApplicable) << name;
  }
}

TEST(Verdict, WithoutALimitOnTheGrayScaleNothingPasses) {
  RunRecord record = exact(15);
  for (const char* name : {"din-6868-157-dental-rk5", "din-6868-157-dental-rk6"}) {
    record.limitsProfile = name;
    record.patches.back().luminance = 400.0;
    const Verdict verdict = verdictOn(record);
    EXPECT_EQ(of(verdict, Quantity::kMaximumLuminance).outcome, Outcome::kPass) << name;
    EXPECT_EQ(verdict.outcome, Outcome::kNotApplicable) << name;
    EXPECT_EQ(verdict.reason, "The gray scale is not judged: this profile has no limit on it.");
    EXPECT_NE(verdict.profile->title.find("luminance only"), std::string_view::npos);
    record.patches.back().luminance = 100.0;
    EXPECT_EQ(verdictOn(record).outcome, Outcome::kFail) << name;
  }
}

TEST(Verdict, TheContrastLimitIsForDicomOnly) {
  const Verdict verdict = verdictOn(exact(15, DisplayFunction::kExp));
  const Criterion& contrast = of(verdict, Quantity::kContrastResponse);
  EXPECT_TRUE(contrast.value);
  EXPECT_FALSE(contrast.limit);
  EXPECT_EQ(contrast.outcome, Outcome::kNotApplicable);
  EXPECT_EQ(verdict.outcome, Outcome::kNotApplicable);
  EXPECT_EQ(verdict.reason,
            "The gray scale is not judged: the limit is for the DICOM function only.");
}

TEST(Verdict, NativeFunctionHasNoContrastTarget) {
  const Verdict verdict = verdictOn(exact(15, DisplayFunction::kNative));
  EXPECT_FALSE(of(verdict, Quantity::kContrastResponse).value);
  EXPECT_EQ(of(verdict, Quantity::kContrastResponse).note,
            "the native function has no target curve");
  EXPECT_EQ(verdict.outcome, Outcome::kNotApplicable);
  EXPECT_EQ(verdict.reason,
            "The gray scale is not judged: the native function has no target curve.");
}

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

TEST(Limits, AreOfTheStandardTheyAreNamedAfterOrSayThatTheyAreNot) {
  for (const LimitsProfile& profile : limitsProfiles()) {
    EXPECT_FALSE(profile.notJudged.empty()) << profile.name;
    const std::string_view standard = profile.name.substr(0, profile.name.find('-'));
    const std::string_view name = standard == "din" ? "DIN 6868-157" : "AAPM";
    for (const Limit& limit : profile.limits) {
      const bool isGerman = limit.source.find("German quality") != std::string_view::npos;
      const bool isOfIt = limit.source.find(name) != std::string_view::npos || isGerman;
      EXPECT_NE(limit.isOwn, isOfIt) << profile.name << ": " << limit.source;
      EXPECT_EQ(limit.source.rfind("of no standard", 0) == 0, limit.isOwn);
    }
  }
}

TEST(Verdict, APassNamesWhatItCouldNotJudge) {
  RunRecord record = exact(15);
  record.target.ambient.reset();
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(verdict.outcome, Outcome::kPass);
  EXPECT_EQ(verdict.reason,
            "All 2 limits that apply are met. Not judged: Ambient ratio (the ambient light is not "
            "known).");
  EXPECT_EQ(of(verdict, Quantity::kWhiteLevel).note,
            "a tolerance of this program, not of the standard");
}

TEST(Limits, HaveTheSourcesNumbers) {
  const auto value = [](std::string_view profile, Quantity quantity) {
    for (const Limit& limit : findLimits(profile)->limits)
      if (limit.quantity == quantity) return limit.value;
    return -1.0;
  };
  EXPECT_EQ(value("tg270-diagnostic", Quantity::kContrastResponse), 0.10);
  EXPECT_EQ(value("tg270-other", Quantity::kContrastResponse), 0.20);
  EXPECT_EQ(value("tg18-primary", Quantity::kContrastResponse), 0.10);
  EXPECT_EQ(value("tg270-diagnostic", Quantity::kAmbientRatio), 2.0 / 3.0);
  EXPECT_EQ(value("acr-diagnostic", Quantity::kContrastResponse), 0.10);
  EXPECT_EQ(value("acr-other", Quantity::kContrastResponse), 0.20);
  EXPECT_EQ(value("acr-diagnostic", Quantity::kMaximumLuminance), 350.0);
  EXPECT_EQ(value("acr-other", Quantity::kMaximumLuminance), 250.0);
  EXPECT_EQ(value("tg270-diagnostic", Quantity::kWhiteLevel), 0.10);
  EXPECT_EQ(value("tg270-diagnostic", Quantity::kLuminanceRatio), -1.0);
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
