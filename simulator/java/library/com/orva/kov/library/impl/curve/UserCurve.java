// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.curve;

/**
 * A display function given as luminances at equally spaced levels, the first for level 0 and the last
 * for 1, straight lines between. Only their shape counts: the values are stretched to the range that
 * is calibrated, so they may be in cd/m² or in anything else.
 */
final class UserCurve implements ToneCurve {
  private final double[] points;

  UserCurve(double[] points) {
    if (points == null || points.length < 2) {
      throw new IllegalArgumentException("A user-defined display function needs two points or more");
    }
    for (int i = 0; i < points.length; ++i) {
      if (!Double.isFinite(points[i]) || (i > 0 && points[i] < points[i - 1])) {
        throw new IllegalArgumentException(
            "The user-defined display function does not rise at point " + i);
      }
    }
    if (points[0] == points[points.length - 1]) {
      throw new IllegalArgumentException("The user-defined display function is flat");
    }
    this.points = points.clone();
  }

  @Override
  public double luminance(double level, double darkest, double brightest) {
    int last = points.length - 1;
    double place = level * last;
    int below = Math.min((int) place, last - 1);
    double value = points[below] + (place - below) * (points[below + 1] - points[below]);
    double share = (value - points[0]) / (points[last] - points[0]);
    return darkest + (brightest - darkest) * share;
  }
}
