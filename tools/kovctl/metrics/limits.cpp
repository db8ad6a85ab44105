// SPDX-License-Identifier: MIT
#include "metrics/limits.h"

#include <array>

namespace kovctl {
namespace {

// The reports and standards themselves are not free to read; each figure names the public text that
// quotes it. What no such text quotes is not judged, and the profile says so. No profile bears a
// standard's name alone: its figures are as good as the texts that were found. How far a display
// may be off what a user has asked of it is of no standard; those tolerances are kovctl's own.
constexpr std::string_view kContrastDiagnostic =
    "ACR–AAPM–SIIM technical standard for electronic practice of medical imaging: within 10 % of "
    "the GSDF for diagnostic interpretation; quoted in the pacsDisplay module documentation "
    "(GitHub, pacsdisplay/pacsdisplay), lumResponse, QC evaluations";
constexpr std::string_view kContrastOther =
    "ACR–AAPM–SIIM technical standard for electronic practice of medical imaging: within 20 % of "
    "the GSDF for other uses; quoted in the pacsDisplay module documentation (GitHub, "
    "pacsdisplay/pacsdisplay), lumResponse, QC evaluations";
constexpr std::string_view kAmbientTwoThirds =
    "AAPM On-line Report 03 (TG-18, 2005) and AAPM Report 270 (2019): ambient ratio no more than "
    "2/3, less than 1/4 recommended; quoted in the pacsDisplay module documentation (GitHub, "
    "pacsdisplay/pacsdisplay), lutGenerate, step 3";
constexpr std::string_view kRatioNewYork =
    "not from the AAPM: New York City quality assurance regulations for primary diagnostic "
    "monitors (2016), luminance ratio of at least 250:1; quoted in the abstracts of The "
    "Assessment and Characterization of the Built-in Internal Photometer of Primary Diagnostic "
    "Monitors (SU-F-I-61, doi 10.1118/1.4955889, and the article of that title)";
constexpr std::string_view kAcrLuminance =
    "ACR–AAPM–SIIM technical standard for electronic practice of medical imaging: maximum "
    "luminance "
    "of at least 350 cd/m² for diagnostic interpretation (420 cd/m² for mammography, not judged "
    "here) and 250 cd/m² for other purposes; summarized in Display requirements for diagnostic "
    "interpretation of radiology images (seekhealthz.com)";
constexpr std::string_view kWhiteLevelTolerance =
    "of no standard: 10 % tolerance on the target maximum luminance, recommended by the seller of "
    "the monitors examined in the article The Assessment and Characterization of the Built-in "
    "Internal Photometer of Primary Diagnostic Monitors (abstract)";
// Twice the white's, since a meter is less exact in the dark. With white and black both at their
// worst, three quarters of the ratio that was asked for are left (0.9 / 1.2).
constexpr std::string_view kBlackLevelTolerance =
    "of no standard: kovctl's own tolerance of 20 % on a minimum luminance that the target names";
// About the distance between the whites of 6500 K and 7500 K: who asked for one and sees the other
// has not got what was asked for.
constexpr std::string_view kWhitePointTolerance =
    "of no standard: kovctl's own tolerance of Δu′v′ 0.01 on a white point that the target names";
// A floor, so that a display with next to no contrast is no pass; the figure is the German one.
constexpr std::string_view kRatioOther =
    "of no standard: kovctl's own floor for other uses, for want of a public text that quotes one "
    "for them; a luminance ratio of 100 is what the German quality assurance guideline (QS-RL) "
    "asks of dental displays";

constexpr std::string_view kDental5Luminance =
    "DIN 6868-157 (2014), 200 cd/m² for room class 5; quoted by the X-ray office of the "
    "Bundeszahnärztekammer, Neue Norm für Prüfung von Befundmonitoren (KZV Land Brandenburg, zbb "
    "1/2015), and in Konstanzprüfung für Zahnärzte (daz-forum.org)";
constexpr std::string_view kDental6Luminance =
    "DIN 6868-157 (2014), 300 cd/m² for room class 6; quoted in Konstanzprüfung für Zahnärzte "
    "(daz-forum.org)";
constexpr std::string_view kDentalRatio =
    "German quality assurance guideline (QS-RL), luminance ratio R′ of at least 100, stated for "
    "dental displays accepted under the earlier DIN V 6868-57; quoted by the Landeszahnärztekammer "
    "Baden-Württemberg (2025), Neue Qualitätssicherungs-Richtlinie: Müssen jetzt alle Monitore "
    "ausgetauscht werden? (implantologie-heute.de)";

using enum Quantity;
using enum Bound;

// Of the target, not of a standard: what is far off what was asked for is no success.
constexpr Limit kTargetWhite{kWhiteLevel, kAtMost, 0.10, kWhiteLevelTolerance, true};
constexpr Limit kTargetBlack{kBlackLevel, kAtMost, 0.20, kBlackLevelTolerance, true};
constexpr Limit kTargetColour{kWhitePoint, kAtMost, 0.01, kWhitePointTolerance, true};

constexpr Limit kDiagnostic[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastDiagnostic},
    {kLuminanceRatio, kAtLeast, 250.0, kRatioNewYork},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    kTargetWhite,
    kTargetBlack,
    kTargetColour,
};
constexpr Limit kOther[] = {
    {kContrastResponse, kAtMost, 0.20, kContrastOther},
    {kLuminanceRatio, kAtLeast, 100.0, kRatioOther, true},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    kTargetWhite,
    kTargetBlack,
    kTargetColour,
};
constexpr Limit kAcrDiagnostic[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastDiagnostic},
    {kMaximumLuminance, kAtLeast, 350.0, kAcrLuminance},
    kTargetWhite,
    kTargetBlack,
    kTargetColour,
};
constexpr Limit kAcrOther[] = {
    {kContrastResponse, kAtMost, 0.20, kContrastOther},
    {kMaximumLuminance, kAtLeast, 250.0, kAcrLuminance},
    kTargetWhite,
    kTargetBlack,
    kTargetColour,
};
constexpr Limit kDental5[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDentalRatio},
    {kMaximumLuminance, kAtLeast, 200.0, kDental5Luminance},
};
constexpr Limit kDental6[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDentalRatio},
    {kMaximumLuminance, kAtLeast, 300.0, kDental6Luminance},
};

constexpr std::string_view kOwnLeft =
    "minimum and maximum luminance as such, gray tracking, uniformity";
constexpr std::string_view kAcrLeft =
    "minimum luminance, luminance ratio, ambient light, white point as such, uniformity";
constexpr std::string_view kDentalLeft = "gray scale, uniformity";

constexpr std::array kProfiles{
    LimitsProfile{"diagnostic", "Diagnostic displays; each limit with its own source", kDiagnostic,
                  kOwnLeft},
    LimitsProfile{"other", "Displays for other uses; each limit with its own source", kOther,
                  kOwnLeft},
    LimitsProfile{"acr-diagnostic",
                  "Public summaries of the ACR–AAPM–SIIM technical standard, diagnostic, contrast "
                  "and white only",
                  kAcrDiagnostic, kAcrLeft},
    LimitsProfile{"acr-other",
                  "Public summaries of the ACR–AAPM–SIIM technical standard, other uses, contrast "
                  "and white only",
                  kAcrOther, kAcrLeft},
    LimitsProfile{"din-6868-157-dental-rk5",
                  "Informative, never a pass: dental, room class 5, luminance only, as DIN "
                  "6868-157 and QS-RL are quoted",
                  kDental5, kDentalLeft},
    LimitsProfile{"din-6868-157-dental-rk6",
                  "Informative, never a pass: dental, room class 6, luminance only, as DIN "
                  "6868-157 and QS-RL are quoted",
                  kDental6, kDentalLeft},
};

}  // namespace

std::span<const LimitsProfile> limitsProfiles() { return kProfiles; }

const LimitsProfile* findLimits(std::string_view name) {
  for (const LimitsProfile& profile : kProfiles)
    if (profile.name == name) return &profile;
  return nullptr;
}

}  // namespace kovctl
