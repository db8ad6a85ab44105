// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

import java.util.Arrays;
import java.util.Objects;

/**
 * What a calibration aims at. Luminances in cd/m², colours as CIE 1931 x, y.
 *
 * <p>The gamma model type is one of "Dicom 14", "CIE 1976", "CIE DIN 6174", "Gamma Function",
 * "Logarithmic Luminance Linear", "CRT", "Original", "Userdefined", "Undefined".
 */
public class CalibrationTargetValues {
  private double ambientLightValue;
  private boolean colorCalibration;
  private double colorX;
  private double colorY;
  private String gammaModelTag = "";
  private String gammaModelType = "Undefined";
  private double gammaValue;
  private double maxLuminance;
  private double minLuminance;
  private boolean useMinimumLuminance;
  private double[] userDefinedData = new double[0];

  /** A target that asks for nothing: native tone curve, native luminances, native white. */
  public CalibrationTargetValues() {}

  public CalibrationTargetValues(CalibrationTargetValues other) {
    ambientLightValue = other.ambientLightValue;
    colorCalibration = other.colorCalibration;
    colorX = other.colorX;
    colorY = other.colorY;
    gammaModelTag = other.gammaModelTag;
    gammaModelType = other.gammaModelType;
    gammaValue = other.gammaValue;
    maxLuminance = other.maxLuminance;
    minLuminance = other.minLuminance;
    useMinimumLuminance = other.useMinimumLuminance;
    userDefinedData = other.getUserDefinedData();
  }

  /** Light of the room that the screen reflects, added to what it emits. */
  public double getAmbientLightValue() {
    return ambientLightValue;
  }

  public double getColorX() {
    return colorX;
  }

  public double getColorY() {
    return colorY;
  }

  public String getGammaModelTag() {
    return gammaModelTag;
  }

  public String getGammaModelType() {
    return gammaModelType;
  }

  /** Exponent of "Gamma Function". */
  public double getGammaValue() {
    return gammaValue;
  }

  /** Luminance of white; 0 leaves it to the panel. */
  public double getMaxLuminance() {
    return maxLuminance;
  }

  /** Luminance of black; counts only when {@link #isUseMinimumLuminance}. */
  public double getMinLuminance() {
    return minLuminance;
  }

  /** Tone curve of "Userdefined"; null where none was given. */
  public double[] getUserDefinedData() {
    return userDefinedData == null ? null : userDefinedData.clone();
  }

  /** Whether white is to have the colour of {@link #getColorX} and {@link #getColorY}. */
  public boolean isColorCalibration() {
    return colorCalibration;
  }

  /** False: black is what the panel measures at its darkest. */
  public boolean isUseMinimumLuminance() {
    return useMinimumLuminance;
  }

  public void setAmbientLightValue(double ambientLightValue) {
    this.ambientLightValue = ambientLightValue;
  }

  public void setColorCalibration(boolean colorCalibration) {
    this.colorCalibration = colorCalibration;
  }

  public void setColorX(double colorX) {
    this.colorX = colorX;
  }

  public void setColorY(double colorY) {
    this.colorY = colorY;
  }

  public void setGammaModelTag(String gammaModelTag) {
    this.gammaModelTag = gammaModelTag;
  }

  public void setGammaModelType(String gammaModelType) {
    this.gammaModelType = gammaModelType;
  }

  public void setGammaValue(double gammaValue) {
    this.gammaValue = gammaValue;
  }

  public void setMaxLuminance(double maxLuminance) {
    this.maxLuminance = maxLuminance;
  }

  public void setMinLuminance(double minLuminance) {
    this.minLuminance = minLuminance;
  }

  public void setUseMinimumLuminance(boolean useMinimumLuminance) {
    this.useMinimumLuminance = useMinimumLuminance;
  }

  public void setUserDefinedData(double[] userDefinedData) {
    this.userDefinedData = userDefinedData == null ? null : userDefinedData.clone();
  }

  @Override
  public boolean equals(Object object) {
    if (!(object instanceof CalibrationTargetValues)) {
      return false;
    }
    CalibrationTargetValues other = (CalibrationTargetValues) object;
    return Arrays.equals(numbers(), other.numbers())
        && colorCalibration == other.colorCalibration
        && useMinimumLuminance == other.useMinimumLuminance
        && Objects.equals(gammaModelTag, other.gammaModelTag)
        && Objects.equals(gammaModelType, other.gammaModelType)
        && Arrays.equals(userDefinedData, other.userDefinedData);
  }

  @Override
  public int hashCode() {
    return Objects.hash(
        Arrays.hashCode(numbers()),
        colorCalibration,
        useMinimumLuminance,
        gammaModelTag,
        gammaModelType,
        Arrays.hashCode(userDefinedData));
  }

  @Override
  public String toString() {
    return gammaModelType
        + " "
        + minLuminance
        + " to "
        + maxLuminance
        + " cd/m2, ambient "
        + ambientLightValue
        + (colorCalibration ? ", white " + colorX + "/" + colorY : "");
  }

  private double[] numbers() {
    return new double[] {
      ambientLightValue, colorX, colorY, gammaValue, maxLuminance, minLuminance
    };
  }
}
