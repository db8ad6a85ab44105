// SPDX-License-Identifier: MIT
#include "metrics/limits.h"

#include <array>

namespace kovctl {
namespace {

// The reports and the standard themselves are not free to read; each figure names the public text
// that quotes it.
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
    "AAPM TG-18 (2005): within 10 % of the GSDF at 18 points; as a quality-control manual applies it (user's "
    "manual, chapter 10, pages 84 and 85)";
constexpr std::string_view kRatioAcr =
    "ACR technical standard: L'max/L'min of 250 or more; as a quality-control manual applies it (user's manual, "
    "chapter 10, page 85)";
constexpr std::string_view kWhiteLevelDefault =
    "not from the AAPM: default tolerance of ±10 % on the target luminance in the white level test "
    "of a diagnostic display (a display's user's guide, page 21)";

constexpr std::string_view kRadiographyClass =
    "a quality-control manual's application classes (January 2018), class III, projection radiography; the "
    "classes follow the room classes of DIN 6868-157";
constexpr std::string_view kMammographyClass =
    "a quality-control manual's application classes (January 2018), class I, mammography; the classes follow the "
    "room classes of DIN 6868-157";
constexpr std::string_view kStereotaxisClass =
    "a quality-control manual's application classes (January 2018), class II, mammographic stereotaxis; the "
    "classes follow the room classes of DIN 6868-157";
constexpr std::string_view kTomographyClass =
    "a quality-control manual's application classes (January 2018), classes IV and V, fluoroscopy and computed "
    "tomography; the classes follow the room classes of DIN 6868-157";
constexpr std::string_view kDental5Class =
    "a quality-control manual's application classes (January 2018), class VI, for room class 5 of DIN 6868-157";
constexpr std::string_view kDental6Class =
    "a quality-control manual's application classes (January 2018), class VII, for room class 6 of DIN 6868-157";

using enum Quantity;
using enum Bound;

constexpr Limit kTg270Diagnostic[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastDiagnostic},
    {kLuminanceRatio, kAtLeast, 250.0, kRatioAcr},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    {kWhiteLevel, kAtMost, 0.10, kWhiteLevelDefault},
};
constexpr Limit kTg270Other[] = {
    {kContrastResponse, kAtMost, 0.20, kContrastOther},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    {kWhiteLevel, kAtMost, 0.10, kWhiteLevelDefault},
};
constexpr Limit kTg18Primary[] = {
    {kContrastResponse, kAtMost, 0.10, kContrastTg18},
    {kAmbientRatio, kAtMost, 2.0 / 3.0, kAmbientTwoThirds},
    {kWhiteLevel, kAtMost, 0.10, kWhiteLevelDefault},
};
constexpr Limit kRadiography[] = {
    {kContrastResponse, kAtMost, 0.10, kRadiographyClass},
    {kLuminanceRatio, kAtLeast, 250.0, kRadiographyClass},
    {kMaximumLuminance, kAtLeast, 250.0, kRadiographyClass},
};
constexpr Limit kMammography[] = {
    {kContrastResponse, kAtMost, 0.10, kMammographyClass},
    {kLuminanceRatio, kAtLeast, 250.0, kMammographyClass},
    {kMaximumLuminance, kAtLeast, 250.0, kMammographyClass},
};
constexpr Limit kStereotaxis[] = {
    {kContrastResponse, kAtMost, 0.15, kStereotaxisClass},
    {kLuminanceRatio, kAtLeast, 100.0, kStereotaxisClass},
    {kMaximumLuminance, kAtLeast, 200.0, kStereotaxisClass},
};
constexpr Limit kTomography[] = {
    {kContrastResponse, kAtMost, 0.15, kTomographyClass},
    {kLuminanceRatio, kAtLeast, 100.0, kTomographyClass},
    {kMaximumLuminance, kAtLeast, 150.0, kTomographyClass},
};
constexpr Limit kDental5[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDental5Class},
    {kMaximumLuminance, kAtLeast, 200.0, kDental5Class},
};
constexpr Limit kDental6[] = {
    {kLuminanceRatio, kAtLeast, 100.0, kDental6Class},
    {kMaximumLuminance, kAtLeast, 300.0, kDental6Class},
};

constexpr std::array kProfiles{
    LimitsProfile{"tg270-diagnostic", "AAPM Report 270 (2019), diagnostic", kTg270Diagnostic},
    LimitsProfile{"tg270-other", "AAPM Report 270 (2019), other uses", kTg270Other},
    LimitsProfile{"tg18-primary", "AAPM TG-18 (2005), primary", kTg18Primary},
    LimitsProfile{"din-6868-157-radiography", "DIN 6868-157, projection radiography", kRadiography},
    LimitsProfile{"din-6868-157-mammography", "DIN 6868-157, mammography", kMammography},
    LimitsProfile{"din-6868-157-stereotaxis", "DIN 6868-157, mammographic stereotaxis",
                  kStereotaxis},
    LimitsProfile{"din-6868-157-ct", "DIN 6868-157, computed tomography and fluoroscopy",
                  kTomography},
    LimitsProfile{"din-6868-157-dental-rk5", "DIN 6868-157, dental, room class 5", kDental5},
    LimitsProfile{"din-6868-157-dental-rk6", "DIN 6868-157, dental, room class 6", kDental6},
};

}  // namespace

std::span<const LimitsProfile> limitsProfiles() {
  return kProfiles;
}

const LimitsProfile* findLimits(std::string_view name) {
  for (const LimitsProfile& profile : kProfiles)
    if (profile.name == name) return &profile;
  return nullptr;
}

}  // namespace kovctl
