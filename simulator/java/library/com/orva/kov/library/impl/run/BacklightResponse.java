// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

/** How bright white is at each setting of the backlight, both as shares of full. */
final class BacklightResponse {
  /** Below this a backlight flickers; darker whites are made by the look-up table. */
  static final double DARKEST = 0.1;

  private final double[] settings;
  private final double[] brightness;

  /** In rising order; the last is full, 1 and 1. */
  BacklightResponse(double[] settings, double[] brightness) {
    this.settings = settings.clone();
    this.brightness = brightness.clone();
  }

  /** Twice the setting, twice the light. */
  static BacklightResponse proportional() {
    return new BacklightResponse(new double[] {0.0, 1.0}, new double[] {0.0, 1.0});
  }

  /** The setting that gives the wanted share of light, or the nearest that there is. */
  double settingFor(double share) {
    double setting = interpolate(brightness, settings, share);
    return Math.max(DARKEST, Math.min(1.0, setting));
  }

  double brightnessAt(double setting) {
    return interpolate(settings, brightness, setting);
  }

  private static double interpolate(double[] from, double[] to, double value) {
    int above = 1;
    while (above < from.length - 1 && from[above] < value) {
      ++above;
    }
    double part = (value - from[above - 1]) / (from[above] - from[above - 1]);
    return to[above - 1] + part * (to[above] - to[above - 1]);
  }
}
