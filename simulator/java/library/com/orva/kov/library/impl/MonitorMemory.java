// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.impl.panel.Table;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

/** What a monitor remembers while it is off. Guarded by the monitor that owns it. */
final class MonitorMemory {
  final Table[] tables;
  int activeTable;
  boolean locked;
  /** How long the monitor has been on since it left the factory, beyond the model's hours, in s. */
  double secondsOn;
  /** Per look-up table the entry in force; empty where the monitor keeps no history. */
  final List<ExtractedCalibrationData> current;
  /** What the entries in force have replaced, newest first. */
  final List<ExtractedCalibrationData> older;

  private MonitorMemory(
      Table[] tables, List<ExtractedCalibrationData> current, List<ExtractedCalibrationData> older) {
    this.tables = tables;
    this.current = current;
    this.older = older;
  }

  /** As delivered: every table native at full backlight, with a record of that. */
  static MonitorMemory asDelivered(MonitorModel model, int bits) {
    Table[] tables = new Table[model.tables.size()];
    Arrays.fill(tables, Table.straight(bits, 1.0));
    List<ExtractedCalibrationData> entries = new ArrayList<>();
    for (int i = 0; model.keepsHistory && i < tables.length; ++i) {
      entries.add(factoryEntry(model, i));
    }
    return new MonitorMemory(tables, entries, new ArrayList<>());
  }

  MonitorMemory copy() {
    MonitorMemory copy =
        new MonitorMemory(tables.clone(), new ArrayList<>(current), new ArrayList<>(older));
    copy.activeTable = activeTable;
    copy.locked = locked;
    copy.secondsOn = secondsOn;
    return copy;
  }

  /** Gives every table the width that the settings ask for. */
  void fitTo(int bits) {
    for (int i = 0; i < tables.length; ++i) {
      tables[i] = tables[i].withBits(bits);
    }
  }

  /** Puts a calibration in force; the one that it replaces becomes the newest of the older ones. */
  void record(ExtractedCalibrationData entry, int limit) {
    if (current.isEmpty()) {
      return;
    }
    older.add(0, current.set(entry.getLutNumber(), entry));
    while (older.size() > limit) {
      older.remove(older.size() - 1);
    }
  }

  private static ExtractedCalibrationData factoryEntry(MonitorModel model, int table) {
    CalibrationTargetValues target = new CalibrationTargetValues();
    target.setGammaModelType("Original");
    target.setGammaModelTag("factory/" + table);
    ExtractedCalibrationData entry = new ExtractedCalibrationData();
    entry.setLutNumber(table);
    entry.setCalibrationTargetValues(target);
    entry.setPerformer("Prüffeld");
    entry.setComputerName("factory");
    entry.setExecuteDate(model.yearOfManufacture + "-03-01 08:00:00");
    entry.setMeasurementDeviceSerialNumber("");
    entry.setWorkingHours(0);
    describe(entry, model);
    return entry;
  }

  /** What an entry says of the monitor itself. */
  static void describe(ExtractedCalibrationData entry, MonitorModel model) {
    entry.setColorDepth(model.bitsPerChannel);
    entry.setHorizontalResolution(model.horizontalResolution);
    entry.setVerticalResolution(model.verticalResolution);
    entry.setHorizontalFrequency(model.horizontalKilohertz);
    entry.setVerticalFrequency(model.verticalHertz);
  }
}
