// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_PANEL_PANEL_H_
#define L5KOV_SIMULATOR_PANEL_PANEL_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "colour.h"
#include "kov_panel.h"
#include "meter_noise.h"
#include "transmission.h"

namespace kovpanel {

struct Reading {
  double luminance;  ///< cd/m²
  Chromaticity colour;
};

/// One panel with its backlight, its look-up tables and its own clock. Not locked: the registry
/// serialises.
///
/// L(t) = Lk + (Lw - Lk) · T(t) for a gray of drive t, everything scaled by the backlight and by
/// how warm it is. In colour the light of the three channels adds to the black level, which has a
/// colour of its own.
class Panel {
 public:
  /// Whether a screen can be made of these.
  static bool isPossible(const KovPanelParameters& parameters);

  explicit Panel(const KovPanelParameters& parameters);

  /// False when an entry does not fit the width of the tables.
  bool setTable(std::size_t table, std::size_t channel, const std::uint16_t* entries);
  void setBacklight(std::size_t table, double share) { backlights[table] = share; }
  void activate(std::size_t table) { activeTable = table; }
  std::int32_t sensor() const;

  void show(const std::array<double, 3>& components);
  Reading measure();
  Reading emission() const;
  /// The patch behind the look-up table, per channel, and the backlight's share.
  std::array<double, 4> signal() const;

  void wait(double seconds) { elapsed += seconds; }
  double clock() const { return elapsed; }

 private:
  using Curve = std::vector<std::uint16_t>;  ///< empty: straight

  double drive(std::size_t channel) const;
  double warmth() const;

  KovPanelParameters made;
  Transmission transmission;
  Xyz blackLight;                   ///< at full backlight, warm
  std::array<Xyz, 3> channelLight;  ///< of each channel fully open, above black
  MeterNoise noise;
  std::array<std::array<Curve, KOVPANEL_CHANNELS>, KOVPANEL_TABLES> tables;
  std::array<double, KOVPANEL_TABLES> backlights;
  std::size_t activeTable = 0;
  std::array<std::size_t, 3> patch{};  ///< as 8-bit components
  double elapsed = 0.0;                ///< s since registration
};

}  // namespace kovpanel

#endif  // L5KOV_SIMULATOR_PANEL_PANEL_H_
