// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.api.MeasurementDeviceType;
import com.orva.kov.library.impl.panel.Table;
import com.orva.kov.library.impl.run.CalibrationCanceled;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import com.orva.kov.library.impl.run.CalibrationRun;
import com.orva.kov.library.impl.run.Firmware;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Date;
import java.util.List;

/**
 * The calibrations of one monitor, one at a time. A calibration either ends with its table, its
 * record and the program's consent, or the monitor is as it was before. Abort may come from any
 * thread.
 */
final class CalibrationSession {
  private final MonitorDevice device;

  /** Guarded by this; each calibration begins without. */
  private boolean aborted;

  CalibrationSession(MonitorDevice device) {
    this.device = device;
  }

  /** Without a running calibration nothing happens, and the next one is not affected. */
  synchronized void abort() {
    aborted = true;
    notifyAll();
  }

  /** Null when it was canceled. */
  CalibrationOutcome run(CalibrationOrder order, MeasuringHost host) throws IOException {
    MonitorMemory before = device.begin();
    synchronized (this) {
      aborted = false;
    }
    boolean kept = false;
    try {
      double start = device.panel().clock();
      Firmware firmware = new SessionFirmware(order.mode);
      CalibrationOutcome outcome = new CalibrationRun(order.task, host, firmware).perform();
      firmware.step("Calibration.finish");
      device.record(entryOf(order, outcome), device.panel().clock() - start);
      host.progress(100);
      if (!host.finish(resultsOf(order.mode, outcome))) {
        throw new IOException("The result of the calibration was not accepted");
      }
      kept = true;
      return outcome;
    } catch (CalibrationCanceled canceled) {
      return null;
    } finally {
      end(kept, before);
    }
  }

  private void end(boolean kept, MonitorMemory before) {
    if (kept) {
      device.keep();
    } else {
      device.putBack(before);
    }
  }

  private synchronized void giveWay() throws CalibrationCanceled {
    if (aborted) {
      throw new CalibrationCanceled();
    }
  }

  /** Waits, but not beyond an abort. */
  private synchronized void pause(long millis) throws CalibrationCanceled {
    long end = System.nanoTime() + millis * 1_000_000;
    for (long left = millis; left > 0 && !aborted; left = (end - System.nanoTime()) / 1_000_000) {
      try {
        wait(left);
      } catch (InterruptedException interrupted) {
        Thread.currentThread().interrupt();
        break;
      }
    }
    giveWay();
  }

  /** One result per mode up to the calibrated one; nothing is known of the others. */
  private static List<CalibrationResultValues> resultsOf(int mode, CalibrationOutcome outcome) {
    List<CalibrationResultValues> results = new ArrayList<>();
    for (int i = 0; i < mode; ++i) {
      results.add(new CalibrationResultValues(0.0, 0.0, -1));
    }
    results.add(
        new CalibrationResultValues(
            outcome.maxLuminance(), outcome.minLuminance(), outcome.sensor()));
    return results;
  }

  private ExtractedCalibrationData entryOf(CalibrationOrder order, CalibrationOutcome outcome) {
    ExtractedCalibrationData entry = new ExtractedCalibrationData();
    entry.setLutNumber(order.mode);
    entry.setCalibrationTargetValues(outcome.target());
    entry.setBacklightSensorValue(outcome.sensor());
    entry.setMeasurementDeviceType(
        new MeasurementDeviceType(outcome.instrumentType()).getName());
    entry.setMeasurementDeviceSerialNumber(outcome.instrumentSerialNumber());
    entry.setPerformer(order.text);
    entry.setComputerName(computerName());
    String date = device.settings().text("date", "");
    if (date.isEmpty()) {
      entry.setExecuteDate(new Date());
    } else {
      entry.setExecuteDate(date);
    }
    MonitorMemory.describe(entry, device.model());
    return entry;
  }

  private static String computerName() {
    String windows = System.getenv("COMPUTERNAME");
    String name = windows == null ? System.getenv("HOSTNAME") : windows;
    return name == null ? "workstation" : name;
  }

  private final class SessionFirmware implements Firmware {
    private final int mode;

    SessionFirmware(int mode) {
      this.mode = mode;
    }

    @Override
    public void load(Table table) {
      device.pass("Calibration.write");
      device.load(mode, table);
    }

    @Override
    public int sensor() {
      return device.panel().sensor();
    }

    @Override
    public void waitSeconds(double seconds) {
      device.panel().waitSeconds(seconds);
    }

    @Override
    public void step(String point) throws CalibrationCanceled {
      giveWay();
      device.pass(point);
      giveWay();
    }

    @Override
    public void settle() throws CalibrationCanceled {
      pause(device.settings().integer("patch.delay.ms", 0, 0, 3_600_000));
    }
  }
}
