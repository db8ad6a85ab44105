// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_METER_LOADED_PANEL_H_
#define L5KOV_SIMULATOR_METER_LOADED_PANEL_H_

namespace simmeter {

/// The functions of the panel library that Java has loaded into this process.
struct LoadedPanel {
  int (*show)(const char* serial, double red, double green, double blue) = nullptr;
  int (*measure)(const char* serial, double reading[3]) = nullptr;
  int (*signal)(const char* serial, double signal[4]) = nullptr;

  bool isThere() const { return show != nullptr && measure != nullptr && signal != nullptr; }
};

/// Looks for the copy that is already there and never loads one: a second copy would have panels of
/// its own that no firmware drives. Once found it stays.
LoadedPanel findLoadedPanel();

}  // namespace simmeter

#endif  // L5KOV_SIMULATOR_METER_LOADED_PANEL_H_
