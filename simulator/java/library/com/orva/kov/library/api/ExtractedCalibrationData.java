// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

import java.text.SimpleDateFormat;
import java.util.Arrays;
import java.util.Date;
import java.util.List;
import java.util.Locale;

/**
 * One entry of a monitor's calibration history. What the monitor does not know is null.
 *
 * <p>The getters and setters do not mirror each other everywhere: the horizontal frequency is set
 * as a number that cannot be missing, and the kind of instrument is set by its name.
 */
public class ExtractedCalibrationData {
  private Integer backlightSensorValue;
  private CalibrationTargetValues calibrationTargetValues;
  private Integer colorDepth;
  private String computerName;
  private String executeDate;
  private Double horizontalFrequency;
  private Integer horizontalResolution;
  private int lutNumber;
  private String measurementDeviceSerialNumber;
  private MeasurementDeviceType measurementDeviceType = new MeasurementDeviceType();
  private String performer;
  private Integer verticalFrequency;
  private Integer verticalResolution;
  private Integer workingHours;

  public ExtractedCalibrationData() {}

  public ExtractedCalibrationData(ExtractedCalibrationData other) {
    backlightSensorValue = other.backlightSensorValue;
    calibrationTargetValues =
        other.calibrationTargetValues == null
            ? null
            : new CalibrationTargetValues(other.calibrationTargetValues);
    colorDepth = other.colorDepth;
    computerName = other.computerName;
    executeDate = other.executeDate;
    horizontalFrequency = other.horizontalFrequency;
    horizontalResolution = other.horizontalResolution;
    lutNumber = other.lutNumber;
    measurementDeviceSerialNumber = other.measurementDeviceSerialNumber;
    measurementDeviceType = other.measurementDeviceType;
    performer = other.performer;
    verticalFrequency = other.verticalFrequency;
    verticalResolution = other.verticalResolution;
    workingHours = other.workingHours;
  }

  /** In counts; null without a reading. */
  public Integer getBacklightSensorValue() {
    return backlightSensorValue;
  }

  public CalibrationTargetValues getCalibrationTargetValues() {
    return calibrationTargetValues;
  }

  /** Bits per channel. */
  public Integer getColorDepth() {
    return colorDepth;
  }

  public String getComputerName() {
    return computerName;
  }

  /** As "yyyy-MM-dd HH:mm:ss", local time. */
  public String getExecuteDate() {
    return executeDate;
  }

  /** In kHz. */
  public Double getHorizontalFrequency() {
    return horizontalFrequency;
  }

  public Integer getHorizontalResolution() {
    return horizontalResolution;
  }

  /** Index of the table, from 0. */
  public int getLutNumber() {
    return lutNumber;
  }

  public String getMeasurementDeviceSerialNumber() {
    return measurementDeviceSerialNumber;
  }

  public MeasurementDeviceType getMeasurementDeviceType() {
    return measurementDeviceType;
  }

  public String getPerformer() {
    return performer;
  }

  /** In Hz. */
  public Integer getVerticalFrequency() {
    return verticalFrequency;
  }

  public Integer getVerticalResolution() {
    return verticalResolution;
  }

  /** Hours that the monitor had been on. */
  public Integer getWorkingHours() {
    return workingHours;
  }

  public void setBacklightSensorValue(Integer backlightSensorValue) {
    this.backlightSensorValue = backlightSensorValue;
  }

  public void setCalibrationTargetValues(CalibrationTargetValues calibrationTargetValues) {
    this.calibrationTargetValues = calibrationTargetValues;
  }

  public void setColorDepth(Integer colorDepth) {
    this.colorDepth = colorDepth;
  }

  public void setComputerName(String computerName) {
    this.computerName = computerName;
  }

  public void setExecuteDate(String executeDate) {
    this.executeDate = executeDate;
  }

  public void setExecuteDate(Date executeDate) {
    this.executeDate =
        executeDate == null
            ? null
            : new SimpleDateFormat("yyyy-MM-dd HH:mm:ss", Locale.ROOT).format(executeDate);
  }

  public void setHorizontalFrequency(double horizontalFrequency) {
    this.horizontalFrequency = horizontalFrequency;
  }

  public void setHorizontalResolution(Integer horizontalResolution) {
    this.horizontalResolution = horizontalResolution;
  }

  public void setLutNumber(int lutNumber) {
    this.lutNumber = lutNumber;
  }

  public void setMeasurementDeviceSerialNumber(String measurementDeviceSerialNumber) {
    this.measurementDeviceSerialNumber = measurementDeviceSerialNumber;
  }

  public void setMeasurementDeviceType(String name) {
    measurementDeviceType = name == null ? null : new MeasurementDeviceType(name);
  }

  public void setPerformer(String performer) {
    this.performer = performer;
  }

  public void setVerticalFrequency(Integer verticalFrequency) {
    this.verticalFrequency = verticalFrequency;
  }

  public void setVerticalResolution(Integer verticalResolution) {
    this.verticalResolution = verticalResolution;
  }

  public void setWorkingHours(Integer workingHours) {
    this.workingHours = workingHours;
  }

  @Override
  public boolean equals(Object object) {
    return object instanceof ExtractedCalibrationData
        && values().equals(((ExtractedCalibrationData) object).values());
  }

  @Override
  public int hashCode() {
    return values().hashCode();
  }

  @Override
  public String toString() {
    return "table " + lutNumber + ", " + executeDate + ": " + calibrationTargetValues;
  }

  private List<Object> values() {
    return Arrays.asList(
        backlightSensorValue,
        calibrationTargetValues,
        colorDepth,
        computerName,
        executeDate,
        horizontalFrequency,
        horizontalResolution,
        lutNumber,
        measurementDeviceSerialNumber,
        measurementDeviceType == null ? null : measurementDeviceType.getName(),
        performer,
        verticalFrequency,
        verticalResolution,
        workingHours);
  }
}
