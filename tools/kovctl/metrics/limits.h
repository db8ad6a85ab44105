// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_METRICS_LIMITS_H_
#define L5KOV_TOOLS_KOVCTL_METRICS_LIMITS_H_

#include <span>
#include <string_view>

namespace kovctl {

/// What a limit is about. The verdict lists them in this order.
enum class Quantity {
  kContrastResponse,  ///< largest deviation over the 18 points, share
  kLuminanceRatio,    ///< white to black with the room's light
  kAmbientRatio,      ///< room light to black
  kMaximumLuminance,  ///< the screen's own white, cd/m²
  kWhiteLevel,        ///< deviation of the white from its target, share
  kBlackLevel,        ///< deviation of the black from its target, share
  kWhitePoint,        ///< Δu′v′ from the target
  kGrayTracking,      ///< largest Δu′v′ of the grays from the white
};

inline constexpr int kQuantities = 8;

enum class Bound { kAtMost, kAtLeast };

struct Limit {
  Quantity quantity;
  Bound bound;
  double value;
  std::string_view source;
  bool isOwn = false;  ///< of this program and of no standard
};

struct LimitsProfile {
  std::string_view name;   ///< for command lines and records
  std::string_view title;  ///< for people
  std::span<const Limit> limits;
  std::string_view notJudged;  ///< what could be limited too, without a figure to cite here
};

/// All profiles, in the order in which they are offered. Every number names where it was found.
std::span<const LimitsProfile> limitsProfiles();

/// Null when there is none of this name.
const LimitsProfile* findLimits(std::string_view name);

inline constexpr std::string_view kDefaultLimits = "diagnostic";

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_METRICS_LIMITS_H_
