// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** What a calibration reached in one mode: luminances in cd/m², backlight sensor in counts. */
public class CalibrationResultValues {
  private double maxLuminance;
  private double minLuminance;
  private int backlightSensorValue;

  /** A negative sensor value stands for "no reading". */
  public CalibrationResultValues(
      double maxLuminance, double minLuminance, int backlightSensorValue) {
    this.maxLuminance = maxLuminance;
    this.minLuminance = minLuminance;
    this.backlightSensorValue = backlightSensorValue;
  }

  public int getBacklightSensorValue() {
    return backlightSensorValue;
  }

  public double getMaxLuminance() {
    return maxLuminance;
  }

  public double getMinLuminance() {
    return minLuminance;
  }

  public void setBacklightSensorValue(int backlightSensorValue) {
    this.backlightSensorValue = backlightSensorValue;
  }

  public void setMaxLuminance(double maxLuminance) {
    this.maxLuminance = maxLuminance;
  }

  public void setMinLuminance(double minLuminance) {
    this.minLuminance = minLuminance;
  }
}
