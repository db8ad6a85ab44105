// SPDX-License-Identifier: MIT
#include "metrics/limits.h"

#include <array>

namespace kovctl {
namespace {

// The reports and standards themselves are not free to read; each figure names the public text that
// quotes it. A figure that only a seller's documents quote is left out, and with it a profile that
// has no other.
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
constexpr std::string_view kRatioNewYork =
    "not from the AAPM: New York City quality assurance regulations for primary diagnostic "
    "monitors (2016), luminance ratio of at least 250:1; quoted in the abstracts of The "
    "Assessment and Characterization of the Built-in Internal Photometer of Primary Diagnostic "
    "Monitors (SU-F-I-61, doi 10.1118/1.4955889, and the article of that title)";
constexpr std::string_view kWhiteLevelTolerance =
    "not from the AAPM: 10 % tolerance on the target maximum luminance, recommended by the seller "
    "of the monitors examined in the article The Assessment and Characterization of the Built-in "
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

constexpr Limit kTg270Diagnostic[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastDiagnostic},
    {kLuminanceRatio, kAtLeast, 250.0, kRatioNewYork},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    {kWhiteLevel, kAtMost, 0.10, kWhiteLevelTolerance},
};
constexpr Limit kTg270Other[] = {
    {kContrastResponse, kAtMost, 0.20, kContrastOther},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    {kWhiteLevel, kAtMost, 0.10, kWhiteLevelTolerance},
};
constexpr Limit kTg18Primary[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastTg18},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    {kWhiteLevel, kAtMost, 0.10, kWhiteLevelTolerance},
};
constexpr Limit kDental5[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDentalRatio},
    {kMaximumLuminance, kAtLeast, 200.0, kDental5Luminance},
};
constexpr Limit kDental6[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDentalRatio},
    {kMaximumLuminance, kAtLeast, 300.0, kDental6Luminance},
};

constexpr std::array kProfiles{
    LimitsProfile{"tg270-diagnostic", "AAPM Report 270 (2019), diagnostic", kTg270Diagnostic},
    LimitsProfile{"tg270-other", "AAPM Report 270 (2019), other uses", kTg270Other},
    LimitsProfile{"tg18-primary", "AAPM TG-18 (2005), primary", kTg18Primary},
    LimitsProfile{"din-6868-157-dental-rk5", "DIN 6868-157, dental, room class 5, luminance only",
                  kDental5},
    LimitsProfile{"din-6868-157-dental-rk6", "DIN 6868-157, dental, room class 6, luminance only",
                  kDental6},
};

}  // namespace

std::span<const LimitsProfile> limitsProfiles() { return kProfiles; }

const LimitsProfile* findLimits(std::string_view name) {
  for (const LimitsProfile& profile : kProfiles)
    if (profile.name == name) return &profile;
  return nullptr;
}

}  // namespace kovctl
