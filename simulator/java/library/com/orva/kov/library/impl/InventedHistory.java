// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import java.util.ArrayList;
import java.util.List;

/** Older history entries in any number, for measuring how cost grows. They are never saved. */
final class InventedHistory {
  private InventedHistory() {}

  static List<ExtractedCalibrationData> of(MonitorModel model, Settings settings) {
    List<ExtractedCalibrationData> entries = new ArrayList<>();
    long count = model.keepsHistory ? settings.integer("extra.history", 0, 0, 1_000_000) : 0;
    for (int i = 0; i < count; ++i) {
      CalibrationTargetValues target = new CalibrationTargetValues();
      target.setGammaModelType("Dicom 14");
      target.setGammaModelTag("invented/" + i);
      target.setMaxLuminance(250.0);
      target.setMinLuminance(0.5);
      ExtractedCalibrationData entry = new ExtractedCalibrationData();
      entry.setLutNumber(i % model.tables.size());
      entry.setCalibrationTargetValues(target);
      entry.setBacklightSensorValue(750);
      entry.setPerformer("performer " + i);
      entry.setComputerName("workstation");
      entry.setExecuteDate("2020-01-01 12:00:00");
      entry.setMeasurementDeviceSerialNumber("S" + i);
      entry.setMeasurementDeviceType("Instrument 7");
      entry.setWorkingHours(i);
      MonitorMemory.describe(entry, model);
      entries.add(entry);
    }
    return entries;
  }
}
