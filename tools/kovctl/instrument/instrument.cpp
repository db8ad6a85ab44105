// SPDX-License-Identifier: MIT
#include "instrument/instrument.h"

#include <cmath>

#include "failure.h"
#include "instrument/argyll_instrument.h"
#include "instrument/icc_instrument.h"
#include "instrument/sim_instrument.h"

namespace kovctl {

std::array<int, 3> Patch::bytes() const {
  const auto byte = [](double component) { return static_cast<int>(std::lround(component * 255)); };
  return {byte(r), byte(g), byte(b)};
}

std::optional<int> Patch::level() const {
  const auto [red, green, blue] = bytes();
  if (red != green || green != blue) return std::nullopt;
  return red;
}

bool isColour(const Chromaticity& colour) {
  return colour.x >= 0.0 && colour.x <= 1.0 && colour.y >= 0.0 && colour.y <= 1.0;
}

std::optional<Chromaticity> colourOf(const std::array<double, 3>& xyz) {
  const double sum = xyz[0] + xyz[1] + xyz[2];
  if (!(sum > 0.0)) return std::nullopt;
  const Chromaticity colour{xyz[0] / sum, xyz[1] / sum};
  return isColour(colour) ? std::optional<Chromaticity>(colour) : std::nullopt;
}

std::unique_ptr<Instrument> makeInstrument(const InstrumentOptions& options) {
  if (options.choice == "sim") return std::make_unique<SimInstrument>();
  if (options.choice == "argyll") return std::make_unique<ArgyllInstrument>(options);
  if (options.choice.rfind("icc:", 0) == 0 && options.choice.size() > 4) {
    return std::make_unique<IccInstrument>(options.choice.substr(4), options);
  }
  throw Failure(ExitCode::kUsage, "no instrument is called \"" + options.choice +
                                      "\": sim, argyll and icc:FILE are possible");
}

}  // namespace kovctl
