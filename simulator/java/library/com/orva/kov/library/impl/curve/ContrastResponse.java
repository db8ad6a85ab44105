// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.curve;

/**
 * How far a grayscale is from the standard display function, as AAPM On-line Report 03 (TG-18,
 * section 4.3) and Report 270 do it: the contrast per JND between neighbouring levels against what
 * the function has there.
 *
 * <p>With L[i] the luminances of n levels that are equally spaced in the picture, room light
 * included, and j[i] the JND indices that are equally spaced between those of L[0] and L[n - 1]:
 *
 * <pre>
 * measured[i] = 2 (L[i] - L[i-1]) / ((L[i] + L[i-1]) (j[i] - j[i-1]))
 * expected[i] = the same of the function's luminances at j[i-1] and j[i]
 * deviation[i] = |measured[i] - expected[i]| / expected[i]
 * </pre>
 */
public final class ContrastResponse {
  private ContrastResponse() {}

  /** The largest deviation, as a share (0.1 is 10 %). Luminances in cd/m², room light included. */
  public static double largestDeviation(double[] luminances) {
    int steps = luminances.length - 1;
    double first = GrayscaleFunction.index(luminances[0]);
    double last = GrayscaleFunction.index(luminances[steps]);
    double step = (last - first) / steps;
    double largest = 0.0;
    for (int i = 1; i <= steps; ++i) {
      double below = GrayscaleFunction.luminance(first + (i - 1) * step);
      double above = GrayscaleFunction.luminance(first + i * step);
      // The step in JND is the same in both contrasts and cancels.
      double expected = contrast(below, above);
      double measured = contrast(luminances[i - 1], luminances[i]);
      largest = Math.max(largest, Math.abs(measured - expected) / expected);
    }
    return largest;
  }

  private static double contrast(double below, double above) {
    return 2.0 * (above - below) / (above + below);
  }
}
