// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_INSTRUMENT_SIM_FUNCTIONS_H_
#define L5KOV_TOOLS_KOVCTL_INSTRUMENT_SIM_FUNCTIONS_H_

#include <cstdint>
#include <optional>

namespace kovctl {

/// What the simulation's measurement library has beside the maker's two functions. Found by name at
/// run time, so that the same program works with the maker's library, which has none of them.
struct SimFunctions {
  void* (*open)(std::uint32_t deviceId, const char* serial, const char* monitorSerial) = nullptr;
  void (*close)(void* device) = nullptr;
  int (*showPatch)(void* device, double r, double g, double b) = nullptr;
  int (*measure)(void* device, double* luminance, double* x, double* y) = nullptr;
  const char* (*errorText)(int code) = nullptr;
  /// The patch as the panel is driven (three channels, 0 to 1, behind the look-up table) and the
  /// backlight's share. Null in libraries that lack it.
  int (*signal)(void* device, double signal[4]) = nullptr;

  /// Nothing when the measurement library in this process is not the simulation's.
  static std::optional<SimFunctions> load();
};

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_INSTRUMENT_SIM_FUNCTIONS_H_
