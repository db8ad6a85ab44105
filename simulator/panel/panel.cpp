// SPDX-License-Identifier: MIT
#include "panel.h"

#include <algorithm>
#include <cmath>

namespace kovpanel {
namespace {

std::array<Chromaticity, 3> primariesOf(const KovPanelParameters& p) {
  return {{{p.redX, p.redY}, {p.greenX, p.greenY}, {p.blueX, p.blueY}}};
}

/// The light of white above black, and how the channels share it.
bool splitWhite(const KovPanelParameters& p, const Xyz& black, std::array<Xyz, 3>& parts) {
  const Xyz above = fromLuminance({p.whiteX, p.whiteY}, p.whiteLuminance) - black;
  if (p.monochrome != 0) {
    parts.fill(above * (1.0 / 3.0));
    return above.X > 0.0 && above.Y > 0.0 && above.Z > 0.0;
  }
  return mix(primariesOf(p), above, parts);
}

bool isNumber(double value, double least, double most) {
  return std::isfinite(value) && value >= least && value <= most;
}

bool coloursArePossible(const KovPanelParameters& p) {
  const std::array<Chromaticity, 3> primaries = primariesOf(p);
  return isChromaticity({p.whiteX, p.whiteY}) && isChromaticity({p.blackX, p.blackY}) &&
         (p.monochrome != 0 || std::all_of(primaries.begin(), primaries.end(), isChromaticity));
}

bool timesArePossible(const KovPanelParameters& p) {
  constexpr double kLongest = 1e12;
  return isNumber(p.coldDeficit, 0.0, 0.9) && isNumber(p.warmUpSeconds, 1e-3, kLongest) &&
         isNumber(p.startSeconds, 0.0, kLongest) && isNumber(p.secondsPerPatch, 0.0, kLongest) &&
         isNumber(p.secondsPerMeasurement, 0.0, kLongest);
}

}  // namespace

bool Panel::isPossible(const KovPanelParameters& p) {
  constexpr double kBrightest = 1e6;
  const bool numbers = isNumber(p.blackLuminance, 0.0, kBrightest) &&
                       isNumber(p.whiteLuminance, p.blackLuminance, kBrightest) &&
                       p.whiteLuminance > p.blackLuminance && isNumber(p.gamma25, 0.1, 10.0) &&
                       isNumber(p.gamma50, 0.1, 10.0) && isNumber(p.gamma75, 0.1, 10.0) &&
                       timesArePossible(p) && isNumber(p.noiseRelative, 0.0, 1.0) &&
                       isNumber(p.noiseAbsolute, 0.0, kBrightest) &&
                       isNumber(p.sensorFullScale, 0.0, 1e9) && p.lutBits >= 8 && p.lutBits <= 16;
  if (!numbers || !coloursArePossible(p)) {
    return false;
  }
  std::array<Xyz, 3> parts;
  return splitWhite(p, fromLuminance({p.blackX, p.blackY}, p.blackLuminance), parts) &&
         Transmission(p.gamma25, p.gamma50, p.gamma75).rises();
}

Panel::Panel(const KovPanelParameters& parameters)
    : made(parameters),
      transmission(parameters.gamma25, parameters.gamma50, parameters.gamma75),
      blackLight(fromLuminance({parameters.blackX, parameters.blackY}, parameters.blackLuminance)),
      noise(parameters.seed, parameters.noiseRelative, parameters.noiseAbsolute) {
  splitWhite(made, blackLight, channelLight);
  backlights.fill(1.0);
}

bool Panel::setTable(std::size_t table, std::size_t channel, const std::uint16_t* entries) {
  const std::uint32_t most = (1U << made.lutBits) - 1U;
  if (std::any_of(entries, entries + KOVPANEL_ENTRIES,
                  [most](std::uint16_t entry) { return entry > most; })) {
    return false;
  }
  tables[table][channel].assign(entries, entries + KOVPANEL_ENTRIES);
  return true;
}

std::int32_t Panel::sensor() const {
  const double counts = made.sensorFullScale * backlights[activeTable] * warmth();
  return static_cast<std::int32_t>(std::lround(counts));
}

void Panel::show(const std::array<double, 3>& components) {
  for (std::size_t i = 0; i < components.size(); ++i) {
    const double scaled = std::clamp(components[i], 0.0, 1.0) * (KOVPANEL_ENTRIES - 1);
    patch[i] = static_cast<std::size_t>(std::lround(scaled));
  }
  wait(made.secondsPerPatch);
}

Reading Panel::measure() {
  // The reading is that of the moment at which the measurement ends.
  wait(made.secondsPerMeasurement);
  Reading reading = emission();
  reading.luminance = noise.read(reading.luminance);
  return reading;
}

Reading Panel::emission() const {
  Xyz light = blackLight;
  for (std::size_t channel = 0; channel < channelLight.size(); ++channel) {
    light += channelLight[channel] * transmission(drive(channel));
  }
  light = light * (backlights[activeTable] * warmth());
  return {light.Y, chromaticityOf(light, {made.whiteX, made.whiteY})};
}

std::array<double, 4> Panel::signal() const {
  return {drive(0), drive(1), drive(2), backlights[activeTable]};
}

double Panel::drive(std::size_t channel) const {
  const Curve& curve = tables[activeTable][channel];
  if (curve.empty()) {
    return static_cast<double>(patch[channel]) / (KOVPANEL_ENTRIES - 1);
  }
  return static_cast<double>(curve[patch[channel]]) / ((1U << made.lutBits) - 1U);
}

double Panel::warmth() const {
  return 1.0 - made.coldDeficit * std::exp(-(made.startSeconds + elapsed) / made.warmUpSeconds);
}

}  // namespace kovpanel
