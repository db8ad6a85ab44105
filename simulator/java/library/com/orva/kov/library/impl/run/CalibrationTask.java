// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.curve.ToneCurve;

/** What a calibration is to do, checked before anything is measured. Immutable. */
public final class CalibrationTask {
  private static final int DEFAULT_LEVELS = 52;
  private static final int FEWEST_LEVELS = 3;
  private static final int MOST_LEVELS = 256;

  final CalibrationTargetValues target;
  /** Null for the panel's own. */
  final ToneCurve curve;
  final boolean setsWhite;
  final boolean monochrome;
  final int levels;
  final boolean measuresBacklight;
  final int bits;
  final int warmUpRounds;

  /**
   * A white of 0/0 is none, which is what a program sends that knows no colour; a monochrome panel
   * keeps its own. Throws {@link IllegalArgumentException} for what cannot be calibrated.
   */
  public CalibrationTask(
      CalibrationTargetValues target,
      int levels,
      boolean measuresBacklight,
      boolean monochrome,
      int bits,
      int warmUpRounds) {
    this.target = new CalibrationTargetValues(target);
    this.curve = ToneCurve.of(target);
    this.monochrome = monochrome;
    this.setsWhite =
        target.isColorCalibration()
            && !monochrome
            && (target.getColorX() != 0.0 || target.getColorY() != 0.0);
    this.levels = levels == 0 ? DEFAULT_LEVELS : levels;
    this.measuresBacklight = measuresBacklight;
    this.bits = bits;
    this.warmUpRounds = warmUpRounds;
    checkNumbers();
  }

  private void checkNumbers() {
    if (levels < FEWEST_LEVELS || levels > MOST_LEVELS) {
      throw new IllegalArgumentException(
          levels + " gray levels: 0 and " + FEWEST_LEVELS + " to " + MOST_LEVELS + " are possible");
    }
    double max = target.getMaxLuminance();
    double min = target.getMinLuminance();
    double ambient = target.getAmbientLightValue();
    if (!(isLuminance(max) && isLuminance(min) && isLuminance(ambient))) {
      throw new IllegalArgumentException(
          "Not luminances: " + min + " to " + max + " cd/m2, ambient light " + ambient);
    }
    if (target.isUseMinimumLuminance() && max > 0.0 && min >= max) {
      throw new IllegalArgumentException(
          "Black is to be " + min + " cd/m2 and white " + max + " cd/m2");
    }
  }

  private static boolean isLuminance(double value) {
    return value >= 0.0 && value <= 1e6;
  }
}
