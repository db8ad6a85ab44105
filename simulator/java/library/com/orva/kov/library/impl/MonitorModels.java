// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.impl.panel.PanelDesign;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;

/** The monitors of the simulation, in the order in which a search lists them. */
final class MonitorModels {
  private MonitorModels() {}

  static List<MonitorModel> all(Settings settings) {
    List<MonitorModel> models = new ArrayList<>();
    for (MonitorModel model : List.of(colour(), monochrome(), shortSerial(), withoutHistory())) {
      if (settings.flag("monitor." + model.model + ".connected", true)) {
        models.add(model);
      }
    }
    long extra = settings.integer("extra.monitors", 0, 0, 1_000_000);
    for (int i = 1; i <= extra; ++i) {
      models.add(extra(i));
    }
    return models;
  }

  /** Colour. Its panel is the median of published curves of medical LCDs. */
  private static MonitorModel colour() {
    PanelDesign panel = new PanelDesign();
    panel.red(0.640, 0.332).green(0.302, 0.610).blue(0.150, 0.058);
    panel.white(0.2990, 0.3150).black(0.2650, 0.2700);
    MonitorModel model = new MonitorModel("OR-C321", "30210045", panel);
    model.workingHours = 1234;
    model.tables = List.of("DICOM", "CIE", "Gamma 2.2", "Log-linear", "User");
    return model;
  }

  private static MonitorModel monochrome() {
    PanelDesign panel = new PanelDesign().monochrome();
    panel.luminance(0.60, 900.0).gamma(2.18, 2.15, 2.02);
    panel.white(0.2850, 0.3010).black(0.2620, 0.2680);
    MonitorModel model = new MonitorModel("OR-M215", "21500012", panel);
    model.yearOfManufacture = 2022;
    model.bitsPerChannel = 10;
    model.horizontalResolution = 1536;
    model.verticalResolution = 2048;
    model.horizontalKilohertz = 126.5;
    model.workingHours = 8760;
    return model;
  }

  /** Its EDID carries four digits only, and its keys cannot be locked. */
  private static MonitorModel shortSerial() {
    PanelDesign panel = new PanelDesign().luminance(0.28, 410.0).gamma(2.30, 2.24, 2.05);
    panel.white(0.3100, 0.3260).black(0.2750, 0.2820);
    MonitorModel model = new MonitorModel("OR-C240", "24000777", panel);
    model.edidSerialNumber = "1234";
    model.connectionType = "DDC/CI";
    model.lockSupported = false;
    model.horizontalResolution = 1920;
    model.verticalResolution = 1200;
    model.horizontalKilohertz = 74.04;
    model.workingHours = 77;
    return model;
  }

  /** Has no memory for records of calibrations. */
  private static MonitorModel withoutHistory() {
    PanelDesign panel = new PanelDesign().luminance(0.31, 280.0).gamma(2.35, 2.22, 1.95);
    MonitorModel model = new MonitorModel("OR-C190", "19000003", panel);
    model.keepsHistory = false;
    model.yearOfManufacture = 2019;
    model.horizontalResolution = 1280;
    model.verticalResolution = 1024;
    model.horizontalKilohertz = 63.98;
    model.workingHours = 20111;
    return model;
  }

  /** One of any number, for measuring how cost grows; it forgets everything at the end. */
  private static MonitorModel extra(int number) {
    String serial = String.format(Locale.ROOT, "X%07d", number);
    MonitorModel model = new MonitorModel("OR-X100", serial, new PanelDesign());
    model.keepsState = false;
    return model;
  }
}
