// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.impl.panel.Table;

/**
 * A panel's measured tone response: how much of the light between black and white it lets through at
 * each entry that a look-up table can hold.
 *
 * <p>Between the measured levels the local exponent g = ln T / ln t is interpolated, which hardly
 * changes along the curve, and each of its values is taken from a parabola through its neighbours,
 * weighted by how well they are known. That keeps the meter's noise out of the table where the panel
 * is dark.
 */
final class Response {
  /** What an error of the meter is taken to be; only the ratio between levels matters. */
  private static final double RELATIVE_ERROR = 0.0013;

  private static final double ABSOLUTE_ERROR = 0.002;
  private static final int NEIGHBOURS = 6;
  private static final double EXPONENT_WITHOUT_LEVELS = 2.2;

  private final double[] transmission;

  /**
   * Drives (0 to 1, rising) with the luminances measured there, and black and white, in cd/m²; bits
   * as the table's width.
   */
  Response(double[] drives, double[] luminances, double black, double white, int bits) {
    LocalFit exponents = new LocalFit(NEIGHBOURS);
    for (int i = 0; i < drives.length; ++i) {
      double share = (luminances[i] - black) / (white - black);
      if (drives[i] > 0.0 && drives[i] < 1.0 && share > 0.0 && share < 1.0) {
        double error = Math.hypot(RELATIVE_ERROR * luminances[i], ABSOLUTE_ERROR);
        double known = (luminances[i] - black) * -Math.log(drives[i]) / error;
        exponents.add(drives[i], Math.log(share) / Math.log(drives[i]), known * known);
      }
    }
    transmission = new double[Table.mostOf(bits) + 1];
    exponents.smooth();
    for (int entry = 0; entry < transmission.length; ++entry) {
      double drive = (double) entry / (transmission.length - 1);
      double value = Math.pow(drive, exponents.at(drive, EXPONENT_WITHOUT_LEVELS));
      transmission[entry] = entry == 0 ? 0.0 : Math.max(transmission[entry - 1], value);
    }
  }

  /** The entry whose transmission comes nearest; beyond the ends it is the end. */
  int entryOf(double share) {
    int low = 0;
    int high = transmission.length - 1;
    while (high - low > 1) {
      int middle = (low + high) / 2;
      if (transmission[middle] < share) {
        low = middle;
      } else {
        high = middle;
      }
    }
    return share - transmission[low] <= transmission[high] - share ? low : high;
  }
}
