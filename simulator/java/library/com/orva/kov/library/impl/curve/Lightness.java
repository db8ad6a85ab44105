// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.curve;

/** CIE 1976 lightness L*, 0 to 100, of a luminance relative to white (CIE 015:2018, 8.2.1). */
public final class Lightness {
  private static final double THRESHOLD = 216.0 / 24389.0;
  private static final double SLOPE = 24389.0 / 27.0;

  private Lightness() {}

  public static double of(double relativeLuminance) {
    return relativeLuminance > THRESHOLD
        ? 116.0 * Math.cbrt(relativeLuminance) - 16.0
        : SLOPE * relativeLuminance;
  }

  public static double inverse(double lightness) {
    if (lightness <= SLOPE * THRESHOLD) {
      return lightness / SLOPE;
    }
    double root = (lightness + 16.0) / 116.0;
    return root * root * root;
  }
}
