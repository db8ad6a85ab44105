// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.curve;

/**
 * The grayscale standard display function: luminance in cd/m² of the j-th just noticeable difference
 * (JND), j from 1 to 1023. Formula and coefficients: DICOM PS3.14, section 7.1.
 */
public final class GrayscaleFunction {
  public static final double FIRST_INDEX = 1.0;
  public static final double LAST_INDEX = 1023.0;

  private static final double A = -1.3011877;
  private static final double B = -2.5840191e-2;
  private static final double C = 8.0242636e-2;
  private static final double D = -1.0320229e-1;
  private static final double E = 1.3646699e-1;
  private static final double F = 2.8745620e-2;
  private static final double G = -2.5468404e-2;
  private static final double H = -3.1978977e-3;
  private static final double K = 1.2992634e-4;
  private static final double M = 1.3635334e-3;

  private GrayscaleFunction() {}

  /** Indices beyond the ends count as the ends. */
  public static double luminance(double index) {
    double x = Math.log(clamp(index));
    double over = A + x * (C + x * (E + x * (G + x * M)));
    double under = 1.0 + x * (B + x * (D + x * (F + x * (H + x * K))));
    return Math.pow(10.0, over / under);
  }

  /**
   * The index of a luminance; luminances beyond the ends have the index of the end. Found by halving
   * the interval, since the inverse that the standard prints errs by up to 0.09 JND.
   */
  public static double index(double luminance) {
    double low = FIRST_INDEX;
    double high = LAST_INDEX;
    for (int i = 0; i < 60; ++i) {
      double middle = 0.5 * (low + high);
      if (luminance(middle) < luminance) {
        low = middle;
      } else {
        high = middle;
      }
    }
    return 0.5 * (low + high);
  }

  private static double clamp(double index) {
    return Math.max(FIRST_INDEX, Math.min(LAST_INDEX, index));
  }
}
