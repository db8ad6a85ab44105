// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_LIGHTNESS_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_LIGHTNESS_H_

namespace kovctl {

/// CIE 1976 lightness L*, 0 to 100, of a luminance relative to that of white (CIE 015:2018, 8.2.1).
double lightness(double relativeLuminance);

/// The relative luminance of a lightness.
double luminanceOfLightness(double lightness);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_LIGHTNESS_H_
