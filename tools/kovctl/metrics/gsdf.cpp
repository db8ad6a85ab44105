// SPDX-License-Identifier: MIT
#include "metrics/gsdf.h"

#include <algorithm>
#include <cmath>

namespace kovctl {
namespace {

constexpr double kSmallestStep = 1e-10;
constexpr int kMostSteps = 80;

}  // namespace

double gsdfLuminance(double index) {
  const double x = std::log(std::clamp(index, kGsdfFirstIndex, kGsdfLastIndex));
  const double above =
      -1.3011877 + x * (8.0242636e-2 + x * (1.3646699e-1 + x * (-2.5468404e-2 + x * 1.3635334e-3)));
  const double below =
      1.0 + x * (-2.5840191e-2 +
                 x * (-1.0320229e-1 + x * (2.8745620e-2 + x * (-3.1978977e-3 + x * 1.2992634e-4))));
  return std::pow(10.0, above / below);
}

double gsdfPrintedIndex(double luminance) {
  constexpr double kCoefficients[] = {71.498068,  94.593053,   41.912053,  9.8247004,   0.28175407,
                                      -1.1878455, -0.18014349, 0.14710899, -0.017046845};
  const double x = std::log10(luminance);
  double sum = 0.0;
  for (int i = 8; i >= 0; --i) sum = sum * x + kCoefficients[i];
  return sum;
}

double gsdfIndex(double luminance) {
  if (!(luminance > gsdfLuminance(kGsdfFirstIndex))) return kGsdfFirstIndex;
  if (luminance >= gsdfLuminance(kGsdfLastIndex)) return kGsdfLastIndex;
  // The fit is off by less than 0.1, so a bracket of 1 holds the answer; halving needs no slope.
  const double start = gsdfPrintedIndex(luminance);
  double low = std::max(kGsdfFirstIndex, start - 1.0);
  double high = std::min(kGsdfLastIndex, start + 1.0);
  for (int step = 0; step < kMostSteps && high - low > kSmallestStep; ++step) {
    const double middle = 0.5 * (low + high);
    (gsdfLuminance(middle) < luminance ? low : high) = middle;
  }
  return 0.5 * (low + high);
}

}  // namespace kovctl
