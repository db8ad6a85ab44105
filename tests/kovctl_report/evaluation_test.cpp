// SPDX-License-Identifier: MIT
#include "metrics/evaluation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "exact_record.h"
#include "metrics/gsdf.h"
#include "sample_record.h"

namespace kovctl {
namespace {

using test::exact;
using test::of;
using test::verdictOn;

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
            "All 5 limits that apply are met. Measured by the library's own verification; there "
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

}  // namespace
}  // namespace kovctl
