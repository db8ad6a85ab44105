// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.impl.panel.PanelDesign;
import java.util.List;

/** What is fixed about one simulated monitor. Immutable once handed out. */
final class MonitorModel {
  final String model;
  final String serialNumber;
  final PanelDesign panel;

  String edidSerialNumber;
  int yearOfManufacture = 2024;
  String connectionType = "USB";
  boolean lockSupported = true;
  /** Whether the monitor records its calibrations, and leaves the factory with a record. */
  boolean keepsHistory = true;
  /** Whether it lives in its file between two programs. */
  boolean keepsState = true;

  int horizontalResolution = 2048;
  int verticalResolution = 1536;
  int bitsPerChannel = 8;
  double horizontalKilohertz = 94.77;
  int verticalHertz = 60;
  int workingHours;
  List<String> tables = List.of("DICOM", "CIE", "Gamma 2.2");

  MonitorModel(String model, String serialNumber, PanelDesign panel) {
    this.model = model;
    this.serialNumber = serialNumber;
    this.panel = panel;
    this.edidSerialNumber = serialNumber;
  }
}
