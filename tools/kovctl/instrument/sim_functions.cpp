// SPDX-License-Identifier: MIT
#include "instrument/sim_functions.h"

#include <exception>

#include "instrument/instrument.h"
#include "system/files.h"
#include "system/shared_library.h"

namespace kovctl {

std::optional<SimFunctions> SimFunctions::load() try {
  const sys::SharedLibrary library(sys::meterLibraryName());
  SimFunctions all;
  all.open = library.function<decltype(all.open)>("MDSimOpen");
  all.close = library.function<decltype(all.close)>("MDSimClose");
  all.showPatch = library.function<decltype(all.showPatch)>("MDSimShowPatch");
  all.measure = library.function<decltype(all.measure)>("MDSimMeasure");
  all.errorText = library.function<decltype(all.errorText)>("MDSimErrorText");
  all.signal = library.function<decltype(all.signal)>("MDSimSignal");
  if (all.open == nullptr || all.close == nullptr || all.showPatch == nullptr ||
      all.measure == nullptr || all.errorText == nullptr) {
    return std::nullopt;
  }
  return all;
} catch (const std::exception&) {
  return std::nullopt;
}

bool isSimulationLoaded() {
  return SimFunctions::load().has_value();
}

}  // namespace kovctl
