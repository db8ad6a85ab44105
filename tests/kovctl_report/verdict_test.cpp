// SPDX-License-Identifier: MIT
#include "metrics/verdict.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "metrics/gsdf.h"
#include "metrics/target_curve.h"
#include "sample_record.h"

namespace kovctl {
namespace {

// A verified gray scale exactly on its target, `step` levels apart.
RunRecord exact(int step, DisplayFunction function = DisplayFunction::kDicom) {
  RunRecord record;
  record.kind = RunKind::kVerify;
  record.target.function = function;
  record.target.lmax = 250.0;
  record.target.lmin = 0.5;
  record.target.ambient = 0.1;
  record.target.exponent = 2.2;
  record.limitsProfile = "tg270-diagnostic";
  const auto curve = wantedCurve(record.target, std::nullopt);
  for (int level = 0; level <= 255; level += step) {
    PatchResult patch;
    patch.sequence = level / step + 1;
    patch.role = PatchRole::kVerify;
    patch.r = patch.g = patch.b = level;
    patch.luminance = curve ? curve->luminance(level / 255.0) : 0.5 + level;
    record.patches.push_back(patch);
  }
  return record;
}

const Criterion& of(const Verdict& verdict, Quantity quantity) {
  return verdict.criteria[static_cast<std::size_t>(quantity)];
}

Verdict verdictOn(const RunRecord& record) { return judge(record, evaluate(record)); }

TEST(Evaluation, AnExactScreenDeviatesByNothing) {
  const Evaluation e = evaluate(exact(15));
  ASSERT_TRUE(e.deciding);
  EXPECT_EQ(e.deciding->steps.size(), 17U);
  EXPECT_LT(*e.deciding->largestDeviation, 1e-9);
  EXPECT_FALSE(e.informing);
  EXPECT_NEAR(*e.luminanceRatio, 250.1 / 0.6, 1e-6);
  EXPECT_NEAR(*e.ambientRatio, 0.2, 1e-7);
  EXPECT_NEAR(*e.lmaxDeviation, 0.0, 1e-7);
  const double jnd = (gsdfIndex(250.1) - gsdfIndex(0.6)) / 255.0;
  for (const ContrastStep& step : e.deciding->steps) EXPECT_NEAR(step.jndPerLevel, jnd, 1e-6);
}

TEST(Evaluation, FiftyTwoPointsInformAndEighteenOfThemDecide) {
  const Evaluation e = evaluate(exact(5));
  ASSERT_TRUE(e.deciding && e.informing);
  EXPECT_EQ(e.deciding->steps.size(), 17U);
  EXPECT_EQ(e.informing->steps.size(), 51U);
  EXPECT_EQ(verdictOn(exact(5)).criteria.front().note,
            "18 levels decide; over 52 levels 0.00 %, for information");
}

TEST(Evaluation, ADeviationIsThatOfTheContrast) {
  RunRecord record = exact(15);
  record.patches[8].luminance *= 1.02;
  const Evaluation e = evaluate(record);
  const double below = record.patches[7].luminance + 0.1, above = record.patches[8].luminance + 0.1;
  const auto curve = wantedCurve(record.target, std::nullopt);
  const double expectedAbove = curve->luminance(120 / 255.0) + 0.1;
  const double expected = 2.0 * (expectedAbove - below) / (expectedAbove + below);
  const double measured = 2.0 * (above - below) / (above + below);
  EXPECT_NEAR(*e.deciding->steps[7].deviation, measured / expected - 1.0, 1e-9);
  EXPECT_GT(*e.deciding->steps[7].deviation, 0.0);
  EXPECT_LT(*e.deciding->steps[8].deviation, 0.0);
}

TEST(Evaluation, ColdPanelHidesInTheContrastAndShowsInTheWhite) {
  RunRecord record = exact(15);
  for (PatchResult& patch : record.patches) patch.luminance *= 1.12;
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(of(verdict, Quantity::kContrastResponse).outcome, Outcome::kPass);
  EXPECT_EQ(of(verdict, Quantity::kWhiteLevel).outcome, Outcome::kFail);
  EXPECT_EQ(verdict.outcome, Outcome::kFail);
}

TEST(Evaluation, WithoutAllEighteenLevelsNothingDecides) {
  RunRecord record = exact(15);
  record.patches.erase(record.patches.begin() + 4);
  EXPECT_FALSE(evaluate(record).deciding);
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(verdict.outcome, Outcome::kNotApplicable);
  EXPECT_EQ(of(verdict, Quantity::kContrastResponse).outcome, Outcome::kNotApplicable);
  EXPECT_FALSE(of(verdict, Quantity::kContrastResponse).note.empty());
}

TEST(Evaluation, RepeatedLevelsAreAveraged) {
  RunRecord record = exact(15);
  PatchResult again = record.patches.back();
  again.luminance += 2.0;
  record.patches.push_back(again);
  EXPECT_NEAR(*evaluate(record).lmax, 251.0, 1e-5);
}

TEST(Evaluation, NativeGraysAreKeptApart) {
  const RunRecord record = test::sampleCalibration();
  const Evaluation e = evaluate(record);
  EXPECT_EQ(e.native.size(), 52U);
  EXPECT_EQ(e.measured.size(), 18U);
  EXPECT_NEAR(e.native.back().luminance, 332.0, 3.0);
  EXPECT_NEAR(*e.lmax, 250.0, 2.0);
}

TEST(Evaluation, TheLibrarysOwnVerificationDecidesNothingBesideACheck) {
  RunRecord record = exact(5);
  record.kind = RunKind::kCalibrate;
  record.checkPoints = 52;
  for (PatchResult& patch : record.patches) patch.luminance *= 1.15;
  for (PatchResult patch : exact(15).patches) {
    patch.role = PatchRole::kLibraryVerify;
    record.patches.insert(record.patches.begin(), patch);
  }
  EXPECT_NEAR(*evaluate(record).lmaxDeviation, 0.15, 1e-6);
  EXPECT_EQ(verdictOn(record).outcome, Outcome::kFail);
  // Nor when the check was cut short.
  std::erase_if(record.patches, [](const auto& patch) { return patch.role == PatchRole::kVerify; });
  EXPECT_EQ(verdictOn(record).outcome, Outcome::kNotApplicable);
  EXPECT_TRUE(evaluate(record).measured.empty());
}

TEST(Evaluation, TheLibrarysOwnVerificationDecidesWhereNoCheckWasWanted) {
  RunRecord record = exact(15);
  record.kind = RunKind::kCalibrate;
  record.checkPoints = 0;
  for (PatchResult& patch : record.patches) patch.role = PatchRole::kLibraryVerify;
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(verdict.outcome, Outcome::kPass);
  EXPECT_EQ(verdict.reason,
            "All 3 limits that apply are met. Measured by the library's own verification; there "
            "was no independent check.");
}

TEST(Evaluation, ColourIsMeasuredInUniformCoordinates) {
  RunRecord record = exact(15);
  record.target.white = Chromaticity{0.3127, 0.3290};
  for (PatchResult& patch : record.patches) patch.chromaticity = Chromaticity{0.3127, 0.3290};
  record.patches.back().chromaticity = Chromaticity{0.3200, 0.3290};
  const Evaluation e = evaluate(record);
  EXPECT_NEAR(e.targetWhite->u, 0.19783, 1e-5);  // CIE 015: D65 has u′ 0.1978, v′ 0.4683
  EXPECT_NEAR(e.targetWhite->v, 0.46832, 1e-5);
  EXPECT_NEAR(*e.whiteDistance, distance(uniform({0.3200, 0.3290}), uniform({0.3127, 0.3290})),
              1e-12);
  EXPECT_DOUBLE_EQ(*e.largestGrayDistance, *e.whiteDistance);
  for (const GrayColour& gray : e.grayColours)
    EXPECT_EQ(gray.fromWhite.has_value(), gray.luminance >= kDarkestTrackedGray);
}

TEST(Evaluation, ColourOfAMeterWithoutColourIsNone) {
  RunRecord record = exact(15);
  for (PatchResult& patch : record.patches) patch.chromaticity = Chromaticity{0.0, 0.0};
  EXPECT_FALSE(evaluate(record).white);
}

TEST(Evaluation, BlackOfZeroAndBelowIsNoAccident) {
  RunRecord record = exact(15);
  record.target.ambient.reset();
  for (const double black : {0.0, -0.002}) {
    record.patches.front().luminance = black;
    const Evaluation e = evaluate(record);
    EXPECT_FALSE(e.luminanceRatio);
    EXPECT_FALSE(e.ambientRatio);
    for (const ContrastStep& step : e.deciding->steps) {
      EXPECT_TRUE(std::isfinite(step.measured));
      EXPECT_TRUE(!step.deviation || std::isfinite(*step.deviation));
    }
  }
}

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
