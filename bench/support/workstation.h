// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_SUPPORT_WORKSTATION_H_
#define L5KOV_BENCH_SUPPORT_WORKSTATION_H_

#include <filesystem>
#include <string>

#include <l5kov.h>

namespace bench {

// The simulated workstation of this process, with a settings folder of its own. To be made before
// the first call into Java.
class Workstation {
 public:
  Workstation();
  ~Workstation();
  Workstation(const Workstation&) = delete;
  Workstation& operator=(const Workstation&) = delete;

  // Searches again, with these lines beside those that keep the simulation quick and repeatable (no
  // noise, nothing on disk). Nothing happens where they are the same as last time.
  void settle(const std::string& settings, const std::string& faults = "");

  // That many monitors and no others.
  void settleWithMonitors(long count);

 private:
  std::filesystem::path home;
  std::string current;
};

// The one of this process; main() makes it.
Workstation& workstation();

inline constexpr const char* kModel = "OR-C321";
inline constexpr const char* kSerial = "30210045";

// The colour monitor, found once and kept.
const lumora::Monitor& colourMonitor();

}  // namespace bench

#endif  // L5KOV_BENCH_SUPPORT_WORKSTATION_H_
