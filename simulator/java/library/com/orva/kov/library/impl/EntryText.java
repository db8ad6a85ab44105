// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import java.util.Arrays;
import java.util.Properties;
import java.util.StringJoiner;
import java.util.function.Consumer;

/** A history entry as lines of a properties file, all under one prefix. */
final class EntryText {
  private EntryText() {}

  static void write(Properties to, String prefix, ExtractedCalibrationData entry) {
    put(to, prefix + "lutNumber", entry.getLutNumber());
    put(to, prefix + "backlightSensorValue", entry.getBacklightSensorValue());
    put(to, prefix + "colorDepth", entry.getColorDepth());
    put(to, prefix + "computerName", entry.getComputerName());
    put(to, prefix + "executeDate", entry.getExecuteDate());
    put(to, prefix + "horizontalFrequency", entry.getHorizontalFrequency());
    put(to, prefix + "horizontalResolution", entry.getHorizontalResolution());
    put(to, prefix + "deviceSerialNumber", entry.getMeasurementDeviceSerialNumber());
    put(to, prefix + "deviceType", entry.getMeasurementDeviceType().getName());
    put(to, prefix + "performer", entry.getPerformer());
    put(to, prefix + "verticalFrequency", entry.getVerticalFrequency());
    put(to, prefix + "verticalResolution", entry.getVerticalResolution());
    put(to, prefix + "workingHours", entry.getWorkingHours());
    writeTarget(to, prefix + "target.", entry.getCalibrationTargetValues());
  }

  static ExtractedCalibrationData read(Properties from, String prefix) {
    ExtractedCalibrationData entry = new ExtractedCalibrationData();
    entry.setLutNumber(Integer.parseInt(from.getProperty(prefix + "lutNumber")));
    integer(from, prefix + "backlightSensorValue", entry::setBacklightSensorValue);
    integer(from, prefix + "colorDepth", entry::setColorDepth);
    entry.setComputerName(from.getProperty(prefix + "computerName"));
    entry.setExecuteDate(from.getProperty(prefix + "executeDate"));
    if (from.containsKey(prefix + "horizontalFrequency")) {
      entry.setHorizontalFrequency(number(from, prefix + "horizontalFrequency"));
    }
    integer(from, prefix + "horizontalResolution", entry::setHorizontalResolution);
    entry.setMeasurementDeviceSerialNumber(from.getProperty(prefix + "deviceSerialNumber"));
    entry.setMeasurementDeviceType(from.getProperty(prefix + "deviceType"));
    entry.setPerformer(from.getProperty(prefix + "performer"));
    integer(from, prefix + "verticalFrequency", entry::setVerticalFrequency);
    integer(from, prefix + "verticalResolution", entry::setVerticalResolution);
    integer(from, prefix + "workingHours", entry::setWorkingHours);
    entry.setCalibrationTargetValues(readTarget(from, prefix + "target."));
    return entry;
  }

  private static void writeTarget(Properties to, String prefix, CalibrationTargetValues target) {
    put(to, prefix + "ambientLight", target.getAmbientLightValue());
    put(to, prefix + "colorCalibration", target.isColorCalibration());
    put(to, prefix + "colorX", target.getColorX());
    put(to, prefix + "colorY", target.getColorY());
    put(to, prefix + "gammaModelTag", target.getGammaModelTag());
    put(to, prefix + "gammaModelType", target.getGammaModelType());
    put(to, prefix + "gammaValue", target.getGammaValue());
    put(to, prefix + "maxLuminance", target.getMaxLuminance());
    put(to, prefix + "minLuminance", target.getMinLuminance());
    put(to, prefix + "useMinimumLuminance", target.isUseMinimumLuminance());
    double[] data = target.getUserDefinedData();
    if (data != null) {
      StringJoiner text = new StringJoiner(" ");
      for (double value : data) {
        text.add(Double.toString(value));
      }
      put(to, prefix + "userDefinedData", text);
    }
  }

  private static CalibrationTargetValues readTarget(Properties from, String prefix) {
    CalibrationTargetValues target = new CalibrationTargetValues();
    target.setAmbientLightValue(number(from, prefix + "ambientLight"));
    target.setColorCalibration(Boolean.parseBoolean(from.getProperty(prefix + "colorCalibration")));
    target.setColorX(number(from, prefix + "colorX"));
    target.setColorY(number(from, prefix + "colorY"));
    target.setGammaModelTag(from.getProperty(prefix + "gammaModelTag"));
    target.setGammaModelType(from.getProperty(prefix + "gammaModelType"));
    target.setGammaValue(number(from, prefix + "gammaValue"));
    target.setMaxLuminance(number(from, prefix + "maxLuminance"));
    target.setMinLuminance(number(from, prefix + "minLuminance"));
    target.setUseMinimumLuminance(
        Boolean.parseBoolean(from.getProperty(prefix + "useMinimumLuminance")));
    String data = from.getProperty(prefix + "userDefinedData");
    if (data == null) {
      target.setUserDefinedData(null);
    } else if (!data.isEmpty()) {
      target.setUserDefinedData(
          Arrays.stream(data.split(" ")).mapToDouble(Double::parseDouble).toArray());
    }
    return target;
  }

  /** A null value is a line that is not there. */
  private static void put(Properties to, String key, Object value) {
    if (value != null) {
      to.setProperty(key, value.toString());
    }
  }

  private static void integer(Properties from, String key, Consumer<Integer> setter) {
    if (from.containsKey(key)) {
      setter.accept(Integer.valueOf(from.getProperty(key)));
    }
  }

  private static double number(Properties from, String key) {
    return Double.parseDouble(from.getProperty(key));
  }
}
