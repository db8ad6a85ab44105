// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import java.io.IOException;
import java.util.Arrays;

/** One measurement: luminance in cd/m², CIE 1931 x, y. */
final class Reading {
  final double luminance;
  final double x;
  final double y;

  private Reading(double luminance, double x, double y) {
    this.luminance = luminance;
    this.x = x;
    this.y = y;
  }

  /** What the program has answered. */
  static Reading of(double[] values) throws IOException {
    if (values.length != 3) {
      throw new IOException(
          "The measurement has " + values.length + " values instead of luminance, x and y");
    }
    for (double value : values) {
      if (!Double.isFinite(value)) {
        throw new IOException("The measurement is not a number: " + Arrays.toString(values));
      }
    }
    if (values[0] < 0.0) {
      throw new IOException("The measured luminance is negative: " + values[0]);
    }
    return new Reading(values[0], values[1], values[2]);
  }

  static Reading mean(Reading[] readings) {
    double luminance = 0.0;
    double x = 0.0;
    double y = 0.0;
    for (Reading reading : readings) {
      luminance += reading.luminance / readings.length;
      x += reading.x / readings.length;
      y += reading.y / readings.length;
    }
    return new Reading(luminance, x, y);
  }

  /** CIE 1931 tristimulus values. */
  double[] tristimulus() throws IOException {
    if (luminance > 0.0 && !(y > 0.0)) {
      throw new IOException("The instrument measures no colour, and white is to be set");
    }
    double scale = luminance > 0.0 ? luminance / y : 0.0;
    return new double[] {x * scale, luminance, (1.0 - x - y) * scale};
  }
}
