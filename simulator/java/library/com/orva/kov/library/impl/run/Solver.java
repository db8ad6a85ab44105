// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.curve.ToneCurve;
import com.orva.kov.library.impl.panel.Table;

/** Turns what was measured of a panel into the look-up table that a target asks for. */
final class Solver {
  private final Response response;
  private final WhitePoint white;
  private final double black;
  private final int bits;

  /** Black in cd/m² at full backlight. */
  Solver(Response response, WhitePoint white, double black, int bits) {
    this.response = response;
    this.white = white;
    this.black = black;
    this.bits = bits;
  }

  /**
   * The backlight is turned down as far as the brightest luminance allows, which keeps the contrast
   * of the panel; what it cannot do is done by the table. A luminance that the panel does not reach
   * becomes the nearest that it does.
   */
  Table solve(CalibrationTargetValues target, ToneCurve curve, BacklightResponse backlight) {
    double wanted = target.getMaxLuminance() > 0.0 ? target.getMaxLuminance() : white.luminance;
    double setting = backlight.settingFor(wanted / white.luminance);
    double light = backlight.brightnessAt(setting);
    double darkest = black * light;
    double brightest = white.luminance * light;
    double top = Math.min(wanted, brightest);
    double bottom = darkest;
    if (target.isUseMinimumLuminance()) {
      bottom = Math.max(darkest, target.getMinLuminance());
    }
    if (!(bottom < top)) {
      throw new IllegalArgumentException(
          "Black would be " + bottom + " cd/m2 and white " + top + " cd/m2");
    }
    int[][] entries = new int[Table.CHANNELS][];
    for (int channel = 0; channel < entries.length; ++channel) {
      double scale = white.gains[channel] / (brightest - darkest);
      entries[channel] =
          curve == null
              ? straight(scale * (bottom - darkest), scale * (top - darkest))
              : curved(curve, bottom, top, darkest, scale);
    }
    return Table.of(entries, setting, bits);
  }

  private int[] curved(ToneCurve curve, double bottom, double top, double darkest, double scale) {
    int[] entries = new int[Table.ENTRIES];
    for (int i = 0; i < entries.length; ++i) {
      double level = (double) i / (entries.length - 1);
      entries[i] = response.entryOf(scale * (curve.luminance(level, bottom, top) - darkest));
    }
    return entries;
  }

  /** The native curve between two transmissions. */
  private int[] straight(double bottom, double top) {
    int first = response.entryOf(bottom);
    int last = response.entryOf(top);
    int[] entries = new int[Table.ENTRIES];
    for (int i = 0; i < entries.length; ++i) {
      entries[i] = first + (int) Math.round((double) i * (last - first) / (entries.length - 1));
    }
    return entries;
  }
}
