// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.impl.panel.Table;
import java.io.IOException;
import java.util.Arrays;

/**
 * How far the three channels are opened for white, and what luminance that gives at full backlight.
 */
final class WhitePoint {
  final double[] gains;
  final double luminance;

  private WhitePoint(double[] gains, double luminance) {
    this.gains = gains;
    this.luminance = luminance;
  }

  static WhitePoint nativeOf(Reading white) {
    double[] gains = new double[Table.CHANNELS];
    Arrays.fill(gains, 1.0);
    return new WhitePoint(gains, white.luminance);
  }

  /**
   * The brightest white of the colour x, y. The light of the channels adds to the black level, so
   * the gains g follow from M g = W - K with the primaries' own light in M's columns; the luminance
   * of W is chosen so that the largest gain is 1.
   */
  static WhitePoint of(Reading black, Reading[] primaries, double x, double y) throws IOException {
    if (!(x > 0.0 && y > 0.0 && x + y < 1.0)) {
      throw new IllegalArgumentException("There is no colour " + x + "/" + y);
    }
    double[] dark = black.tristimulus();
    double[][] light = new double[Table.CHANNELS][];
    for (int channel = 0; channel < light.length; ++channel) {
      light[channel] = minus(primaries[channel].tristimulus(), dark);
    }
    double[] perCandela = solve(light, new double[] {x / y, 1.0, (1.0 - x - y) / y});
    double[] forBlack = solve(light, dark);
    double brightest = Double.MAX_VALUE;
    for (int channel = 0; channel < light.length; ++channel) {
      if (!(perCandela[channel] > 0.0)) {
        throw new IllegalArgumentException("The panel cannot show the colour " + x + "/" + y);
      }
      brightest = Math.min(brightest, (1.0 + forBlack[channel]) / perCandela[channel]);
    }
    double[] gains = new double[Table.CHANNELS];
    for (int channel = 0; channel < gains.length; ++channel) {
      gains[channel] = Math.max(0.0, brightest * perCandela[channel] - forBlack[channel]);
    }
    return new WhitePoint(gains, brightest);
  }

  private static double[] minus(double[] a, double[] b) {
    return new double[] {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
  }

  /** Cramer's rule for three columns. */
  private static double[] solve(double[][] columns, double[] sum) throws IOException {
    double whole = determinant(columns[0], columns[1], columns[2]);
    if (!(Math.abs(whole) > 0.0)) {
      throw new IOException("The measured primaries are not three colours");
    }
    return new double[] {
      determinant(sum, columns[1], columns[2]) / whole,
      determinant(columns[0], sum, columns[2]) / whole,
      determinant(columns[0], columns[1], sum) / whole
    };
  }

  private static double determinant(double[] a, double[] b, double[] c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1])
        - a[1] * (b[0] * c[2] - b[2] * c[0])
        + a[2] * (b[0] * c[1] - b[1] * c[0]);
  }
}
