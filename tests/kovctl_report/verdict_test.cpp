// SPDX-License-Identifier: MIT
#include "metrics/verdict.h"

#include <gtest/gtest.h>

#include <utility>

#include "exact_record.h"

namespace kovctl {
namespace {

using test::exact;
using test::of;
using test::verdictOn;

TEST(Verdict, PassesWhatIsWithinAndNamesTheReason) {
  const Verdict verdict = verdictOn(exact(15));
  EXPECT_EQ(verdict.outcome, Outcome::kPass);
  EXPECT_EQ(verdict.reason, "All 5 limits that apply are met.");
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

TEST(Verdict, ABlackBelowZeroIsJudgedAsNone) {
  RunRecord record = exact(15);
  const auto curve = TargetCurve::of(record.target, 0.0, 250.0);
  for (PatchResult& patch : record.patches) patch.luminance = curve->luminance(patch.r / 255.0);
  record.target.useMeasuredLmin = true;
  record.patches.front().luminance = -0.002;
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(of(verdict, Quantity::kContrastResponse).outcome, Outcome::kPass);
  EXPECT_EQ(of(verdict, Quantity::kLuminanceRatio).outcome, Outcome::kPass);
  EXPECT_EQ(verdict.reason,
            "All 3 limits that apply are met. Not judged: Ambient ratio (the measured black is not "
            "above 0).");
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

// Exactly on a target of its own.
RunRecord exactBetween(double lmin, double lmax, std::string_view profile) {
  RunRecord record = exact(15);
  record.limitsProfile = profile;
  record.target.lmin = lmin;
  record.target.lmax = lmax;
  const auto curve = wantedCurve(record.target, std::nullopt);
  for (PatchResult& patch : record.patches) patch.luminance = curve->luminance(patch.r / 255.0);
  return record;
}

TEST(Verdict, ADisplayWithoutContrastPassesNowhere) {
  for (const char* profile : {"diagnostic", "other"}) {
    const Verdict verdict = verdictOn(exactBetween(10.0, 60.0, profile));
    EXPECT_EQ(of(verdict, Quantity::kContrastResponse).outcome, Outcome::kPass) << profile;
    EXPECT_EQ(of(verdict, Quantity::kLuminanceRatio).outcome, Outcome::kFail) << profile;
    EXPECT_EQ(verdict.outcome, Outcome::kFail) << profile;
  }
  EXPECT_EQ(verdictOn(exactBetween(1.0, 251.0, "diagnostic")).outcome, Outcome::kFail);
  EXPECT_EQ(verdictOn(exactBetween(1.0, 251.0, "other")).outcome, Outcome::kPass);
}

TEST(Verdict, ABlackThatWasAskedForAndMissedIsNoPass) {
  for (const char* profile : {"diagnostic", "other", "acr-other"}) {
    RunRecord record = exactBetween(0.5, 300.0, profile);
    EXPECT_EQ(verdictOn(record).outcome, Outcome::kPass) << profile;
    for (const double asked : {0.4, 0.65}) {
      record.target.lmin = asked;
      EXPECT_EQ(of(verdictOn(record), Quantity::kBlackLevel).outcome, Outcome::kFail) << asked;
      EXPECT_EQ(verdictOn(record).outcome, Outcome::kFail) << asked;
    }
    record.target.useMeasuredLmin = true;
    EXPECT_EQ(of(verdictOn(record), Quantity::kBlackLevel).outcome, Outcome::kNotApplicable);
    EXPECT_EQ(verdictOn(record).outcome, Outcome::kPass) << profile;
  }
}

TEST(Verdict, AWhitePointThatWasAskedForAndMissedIsNoPass) {
  for (const char* profile : {"diagnostic", "other", "acr-other"}) {
    RunRecord record = exactBetween(0.5, 300.0, profile);
    record.target.white = Chromaticity{0.3127, 0.3290};
    Verdict verdict = verdictOn(record);
    EXPECT_EQ(verdict.outcome, Outcome::kPass) << profile;
    EXPECT_NE(verdict.reason.find("White point, Δu′v′ from target (the white's colour was not "
                                  "measured)"),
              std::string::npos)
        << verdict.reason;
    for (const auto& [colour, outcome] :
         {std::pair(Chromaticity{0.3150, 0.3300}, Outcome::kPass),
          std::pair(Chromaticity{0.2990, 0.3149}, Outcome::kFail)}) {
      for (PatchResult& patch : record.patches) patch.chromaticity = colour;
      verdict = verdictOn(record);
      EXPECT_EQ(of(verdict, Quantity::kWhitePoint).outcome, outcome) << profile;
      EXPECT_EQ(verdict.outcome, outcome) << profile;
    }
  }
}

TEST(Verdict, APassNamesWhatItCouldNotJudge) {
  RunRecord record = exact(15);
  record.target.ambient.reset();
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(verdict.outcome, Outcome::kPass);
  EXPECT_EQ(verdict.reason,
            "All 4 limits that apply are met. Not judged: Ambient ratio (the ambient light is not "
            "known).");
  EXPECT_EQ(of(verdict, Quantity::kWhiteLevel).note, "kovctl's own tolerance, of no standard");
}

TEST(Verdict, ARoomSaidToBeWithoutLightIsNoRoomMeasured) {
  RunRecord record = exact(15);
  record.target.ambient = 0.0;
  const auto curve = wantedCurve(record.target, std::nullopt);
  for (PatchResult& patch : record.patches) patch.luminance = curve->luminance(patch.r / 255.0);
  const Verdict verdict = verdictOn(record);
  EXPECT_EQ(of(verdict, Quantity::kAmbientRatio).outcome, Outcome::kNotApplicable);
  EXPECT_EQ(verdict.reason,
            "All 4 limits that apply are met. Not judged: Ambient ratio (the ambient light is "
            "given as 0).");
}

}  // namespace
}  // namespace kovctl
