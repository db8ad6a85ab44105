// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_MEASUREMENTS_H_
#define L5KOV_TOOLS_KOVCTL_RUN_MEASUREMENTS_H_

#include <chrono>
#include <string>
#include <vector>

#include "record/run_record.h"

#include "instrument/instrument.h"

namespace kovctl {

/// Seconds since the run began.
class RunClock {
 public:
  double now() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

 private:
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

/// Adds a reading to a record.
void addMeasurement(std::vector<PatchResult>& patches, PatchRole role, const Patch& patch,
                    const Reading& reading, double time);

/// So many gray levels, evenly spaced from 0 to 255 and rounded: with 18 every 15th, with 52 every
/// 5th.
std::vector<int> evenLevels(int count);

/// "2026-11-21T08:25:49Z"
std::string utcNow();

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_MEASUREMENTS_H_
