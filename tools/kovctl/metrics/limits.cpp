// SPDX-License-Identifier: MIT
#include "metrics/limits.h"

#include <array>

namespace kovctl {
namespace {

// The reports and standards themselves are not free to read; each figure names the public text that
// quotes it. What no such text quotes is not judged, and the profile says so. One figure is of no
// standard at all: how far the white may be off the target that a user has chosen.
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
constexpr std::string_view kContrastTg18 =
    "AAPM On-line Report 03 (TG-18, 2005) for the method, 18 gray levels; the 10 % are those of "
    "the ACR–AAPM–SIIM technical standard for electronic practice of medical imaging; both in the "
    "pacsDisplay module documentation (GitHub, pacsdisplay/pacsdisplay), lumResponse, QC "
    "evaluations";
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

// Of the target, not of the standard: a white far off what was asked for is no success.
constexpr Limit kTargetWhite{kWhiteLevel, kAtMost, 0.10, kWhiteLevelTolerance, true};

constexpr Limit kTg270Diagnostic[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastDiagnostic},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    kTargetWhite,
};
constexpr Limit kTg270Other[] = {
    {kContrastResponse, kAtMost, 0.20, kContrastOther},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    kTargetWhite,
};
constexpr Limit kTg18Primary[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastTg18},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    kTargetWhite,
};
constexpr Limit kAcrDiagnostic[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastDiagnostic},
    {kMaximumLuminance, kAtLeast, 350.0, kAcrLuminance},
    kTargetWhite,
};
constexpr Limit kAcrOther[] = {
    {kContrastResponse, kAtMost, 0.20, kContrastOther},
    {kMaximumLuminance, kAtLeast, 250.0, kAcrLuminance},
    kTargetWhite,
};
constexpr Limit kDental5[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDentalRatio},
    {kMaximumLuminance, kAtLeast, 200.0, kDental5Luminance},
};
constexpr Limit kDental6[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDentalRatio},
    {kMaximumLuminance, kAtLeast, 300.0, kDental6Luminance},
};

constexpr std::string_view kAapmLeft =
    "minimum and maximum luminance, luminance ratio, white point, uniformity";
constexpr std::string_view kAcrLeft =
    "minimum luminance, luminance ratio, ambient light, white point, uniformity";
constexpr std::string_view kDentalLeft = "gray scale, uniformity";

constexpr std::array kProfiles{
    LimitsProfile{"tg270-diagnostic", "AAPM Report 270 (2019), diagnostic, contrast and room light",
                  kTg270Diagnostic, kAapmLeft},
    LimitsProfile{"tg270-other", "AAPM Report 270 (2019), other uses, contrast and room light",
                  kTg270Other, kAapmLeft},
    LimitsProfile{"tg18-primary", "AAPM TG-18 (2005), primary, contrast and room light",
                  kTg18Primary, kAapmLeft},
    LimitsProfile{"acr-diagnostic",
                  "ACR–AAPM–SIIM technical standard, diagnostic, contrast and white",
                  kAcrDiagnostic, kAcrLeft},
    LimitsProfile{"acr-other", "ACR–AAPM–SIIM technical standard, other uses, contrast and white",
                  kAcrOther, kAcrLeft},
    LimitsProfile{"din-6868-157-dental-rk5", "DIN 6868-157, dental, room class 5, luminance only",
                  kDental5, kDentalLeft},
    LimitsProfile{"din-6868-157-dental-rk6", "DIN 6868-157, dental, room class 6, luminance only",
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
