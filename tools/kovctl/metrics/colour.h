// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_COLOUR_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_COLOUR_H_

#include "record/run_record.h"

namespace kovctl {

/// CIE 1976 uniform chromaticity scale u′, v′ (CIE 015:2018, 8.1).
struct UniformChromaticity {
  double u = 0.0;
  double v = 0.0;
};

/// The denominator −2x + 12y + 3 is positive for every real colour.
UniformChromaticity uniform(const Chromaticity& colour);

/// Δu′v′: the straight distance.
double distance(const UniformChromaticity& a, const UniformChromaticity& b);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_COLOUR_H_
