// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_PANEL_METER_NOISE_H_
#define L5KOV_SIMULATOR_PANEL_METER_NOISE_H_

#include <cstdint>

namespace kovpanel {

/// The error of a luminance meter: normal, one part proportional to the reading and one that is
/// not. The same seed gives the same errors with every standard library, which
/// std::normal_distribution does not promise.
class MeterNoise {
 public:
  MeterNoise(std::uint64_t seed, double relative, double absolute);

  /// A reading of `luminance` (cd/m²); never negative.
  double read(double luminance);

 private:
  std::uint64_t next();
  double normal();

  std::uint64_t state;
  double relative;
  double absolute;
};

}  // namespace kovpanel

#endif  // L5KOV_SIMULATOR_PANEL_METER_NOISE_H_
