// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.EdidInformation;
import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.api.LookUpTable;
import com.orva.kov.library.api.Monitor;
import com.orva.kov.library.api.Osd;
import com.orva.kov.library.impl.panel.PanelLink;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;

/** A simulated monitor as a program sees it. Any thread. */
public final class SimulatedMonitor implements Monitor {
  private final MonitorDevice device;
  private final EdidInformation edid;
  private final Osd osd;
  private final List<LookUpTable> lookUpTables = new ArrayList<>();
  private final CalibrationSession session;

  SimulatedMonitor(MonitorModel model) {
    device = new MonitorDevice(model);
    edid = new SimulatedEdid(device);
    osd = new SimulatedOsd(device);
    session = new CalibrationSession(device);
    for (int i = 0; i < model.tables.size(); ++i) {
      lookUpTables.add(new SimulatedLookUpTable(device, i));
    }
  }

  MonitorDevice device() {
    return device;
  }

  /** The wires to the panel, for a program in Java that measures it. */
  public PanelLink panel() {
    return device.panel();
  }

  @Override
  public void abortCalibration() {
    device.pass("Monitor.abortCalibration");
    session.abort();
    device.pass("Monitor.abortCalibration.return");
  }

  @Override
  public List<ExtractedCalibrationData> extractCalibrationData() {
    return device.pass("Monitor.extractCalibrationData") ? null : device.history();
  }

  @Override
  public LookUpTable getActiveLut() {
    return device.pass("Monitor.getActiveLut") ? null : lookUpTables.get(device.activeTable());
  }

  @Override
  public String getColorType() {
    if (device.pass("Monitor.getColorType")) {
      return null;
    }
    return device.model().panel.isMonochrome() ? "Monochrome" : "Color";
  }

  @Override
  public String getConnectionType() {
    return device.pass("Monitor.getConnectionType") ? null : device.model().connectionType;
  }

  @Override
  public EdidInformation getEdidInformation() {
    return device.pass("Monitor.getEdidInformation") ? null : edid;
  }

  @Override
  public List<LookUpTable> getLookUpTables() {
    return device.pass("Monitor.getLookUpTables") ? null : new ArrayList<>(lookUpTables);
  }

  @Override
  public String getModel() {
    return device.pass("Monitor.getModel") ? null : device.model().model;
  }

  @Override
  public Osd getOsd() {
    return device.pass("Monitor.getOsd") ? null : osd;
  }

  @Override
  public String getSerialNumber() {
    return device.pass("Monitor.getSerialNumber") ? null : device.model().serialNumber;
  }

  @Override
  public int getWorkingHours() {
    device.pass("Monitor.getWorkingHours");
    return device.hours();
  }

  @Override
  public void performCalibration(
      List<CalibrationTargetValues> targets,
      boolean useExternalSensors,
      int graylevelCount,
      boolean measureBacklightResponse,
      String text,
      long handle)
      throws IOException {
    MeasuringHost host = new CallbackHost(handle);
    performCalibration(
        targets, useExternalSensors, graylevelCount, measureBacklightResponse, text, host);
  }

  /**
   * The same for a program in Java.
   *
   * @return what was reached, or null when the calibration was canceled
   */
  public CalibrationOutcome performCalibration(
      List<CalibrationTargetValues> targets,
      boolean useExternalSensors,
      int graylevelCount,
      boolean measureBacklightResponse,
      String text,
      MeasuringHost host)
      throws IOException {
    device.pass("Monitor.performCalibration");
    CalibrationOrder order =
        CalibrationOrder.of(device, targets, useExternalSensors, graylevelCount,
            measureBacklightResponse, text);
    return session.run(order, host);
  }
}
