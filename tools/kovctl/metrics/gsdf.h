// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_GSDF_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_GSDF_H_

namespace kovctl {

// The grayscale standard display function of DICOM PS3.14, section 7: luminance in cd/m² against an
// index whose steps are just noticeable differences (JND).

inline constexpr double kGsdfFirstIndex = 1.0;
inline constexpr double kGsdfLastIndex = 1023.0;

/// Equation 7.1-1. An index outside 1 to 1023 is taken as the nearer end.
double gsdfLuminance(double index);

/// Equation 7.1-3, the standard's printed fit of the inverse, which errs by up to 0.09 JND.
/// A luminance outside the function's range gives whatever the fit gives there.
double gsdfPrintedIndex(double luminance);

/// The inverse of gsdfLuminance() itself, to 1e-9 JND: the printed fit, then refined. A luminance
/// outside 0.04998 to 3993.4 cd/m² gives the nearer end.
double gsdfIndex(double luminance);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_GSDF_H_
