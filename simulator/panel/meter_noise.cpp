// SPDX-License-Identifier: MIT
#include "meter_noise.h"

#include <algorithm>
#include <cmath>

namespace kovpanel {
namespace {

constexpr double kTwoPi = 6.283185307179586476925;

/// A number in (0, 1) from the upper 53 bits; never 0, so that its logarithm exists.
double unit(std::uint64_t bits) { return (static_cast<double>(bits >> 11U) + 0.5) * 0x1.0p-53; }

}  // namespace

MeterNoise::MeterNoise(std::uint64_t seed, double relativeError, double absoluteError)
    : state(seed), relative(relativeError), absolute(absoluteError) {}

double MeterNoise::read(double luminance) {
  // Both are drawn every time, so that switching one part off leaves the other as it was.
  const double first = normal();
  const double second = normal();
  return std::max(0.0, luminance * (1.0 + relative * first) + absolute * second);
}

/// SplitMix64 (Steele, Lea, Flood: Fast splittable pseudorandom number generators, 2014).
std::uint64_t MeterNoise::next() {
  state += 0x9E3779B97F4A7C15ULL;
  std::uint64_t z = state;
  z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31U);
}

/// Box and Muller, 1958.
double MeterNoise::normal() {
  const double radius = std::sqrt(-2.0 * std::log(unit(next())));
  return radius * std::cos(kTwoPi * unit(next()));
}

}  // namespace kovpanel
