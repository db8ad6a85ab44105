// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.curve.ContrastResponse;

/** What a calibration has reached, as its verification measured it. Immutable. */
public final class CalibrationOutcome {
  private final CalibrationTargetValues target;
  private final double[] luminances;
  private final int sensor;
  private final int instrumentType;
  private final String instrumentSerialNumber;

  CalibrationOutcome(
      CalibrationTargetValues target,
      double[] luminances,
      int sensor,
      int instrumentType,
      String instrumentSerialNumber) {
    this.target = target;
    this.luminances = luminances.clone();
    this.sensor = sensor;
    this.instrumentType = instrumentType;
    this.instrumentSerialNumber = instrumentSerialNumber;
  }

  /** The target; where it left black to the panel, with the black that was measured. */
  public CalibrationTargetValues target() {
    CalibrationTargetValues reached = new CalibrationTargetValues(target);
    if (!target.isUseMinimumLuminance()) {
      reached.setMinLuminance(minLuminance());
    }
    return reached;
  }

  /** In cd/m² at the 18 levels 0, 15, … 255. */
  public double[] luminances() {
    return luminances.clone();
  }

  public double maxLuminance() {
    return luminances[luminances.length - 1];
  }

  public double minLuminance() {
    return luminances[0];
  }

  /** In counts. */
  public int sensor() {
    return sensor;
  }

  public int instrumentType() {
    return instrumentType;
  }

  public String instrumentSerialNumber() {
    return instrumentSerialNumber;
  }

  /** Against the grayscale standard display function, whatever the target was; a share. */
  public double largestContrastDeviation() {
    double[] seen = luminances.clone();
    for (int i = 0; i < seen.length; ++i) {
      seen[i] += target.getAmbientLightValue();
    }
    return ContrastResponse.largestDeviation(seen);
  }
}
