// SPDX-License-Identifier: MIT
#include "run/measurements.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <ctime>

namespace kovctl {

void addMeasurement(std::vector<PatchResult>& patches, PatchRole role, const Patch& patch,
                    const Reading& reading, double time) {
  PatchResult result;
  result.sequence = static_cast<int>(patches.size()) + 1;
  result.role = role;
  const auto [r, g, b] = patch.bytes();
  result.r = r;
  result.g = g;
  result.b = b;
  result.level = patch.level();
  result.luminance = reading.luminance;
  result.chromaticity = reading.chromaticity;
  result.time = time;
  patches.push_back(result);
}

std::vector<int> evenLevels(int count) {
  std::vector<int> levels;
  const int last = count - 1;
  for (int i = 0; i < count; ++i) levels.push_back((2 * i * 255 + last) / (2 * last));
  return levels;
}

std::string utcNow() {
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(std::time(nullptr)));
}

}  // namespace kovctl
