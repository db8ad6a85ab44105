// SPDX-License-Identifier: MIT
#ifndef L5KOV_SIMULATOR_PANEL_TRANSMISSION_H_
#define L5KOV_SIMULATOR_PANEL_TRANSMISSION_H_

namespace kovpanel {

/// How much of the backlight a liquid-crystal cell lets through: t^γ(t) for a drive t of 0 to 1, γ
/// a quadratic in t through its values at 25, 50 and 75 %. 0 gives 0, 1 gives 1.
class Transmission {
 public:
  Transmission(double gamma25, double gamma50, double gamma75);

  double gamma(double drive) const;
  double operator()(double drive) const;

  /// Whether more drive never gives less light.
  bool rises() const;

 private:
  double gamma50;
  double slope;      ///< first derivative of γ at 50 %
  double curvature;  ///< half its second derivative
};

}  // namespace kovpanel

#endif  // L5KOV_SIMULATOR_PANEL_TRANSMISSION_H_
