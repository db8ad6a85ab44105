// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_RUN_MEASURING_STATION_H_
#define L5KOV_TOOLS_KOVCTL_RUN_MEASURING_STATION_H_

#include <memory>
#include <string>

#include "cli/context.h"
#include "display/patch_screen.h"
#include "instrument/instrument.h"
#include "output/progress.h"

namespace kovctl {

/// The instrument as it is chosen, not opened yet.
/// @throws Failure(kUsage) for an instrument or a screen that there cannot be, or not together
std::unique_ptr<Instrument> chooseInstrument(const InstrumentOptions& instrumentOptions,
                                             const ScreenOptions& screenOptions);

/// The instrument and the screen in front of it, opened together. One thread.
class MeasuringStation {
 public:
  /// @throws Failure(kUsage), Failure(kInstrument)
  MeasuringStation(Context& context, InstrumentOptions instrumentOptions,
                   const ScreenOptions& screenOptions, const std::string& monitorSerial);

  Instrument& instrument() { return *device; }
  void show(const Patch& patch);
  /// @throws Failure(kInstrument) also when the patch window was closed meanwhile
  Reading measure();

 private:
  std::unique_ptr<PatchScreen> screen;
  std::unique_ptr<Instrument> device;
};

/// The progress display that fits standard error.
Progress makeProgress(Context& context);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_RUN_MEASURING_STATION_H_
