// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.panel.PanelLink;
import com.orva.kov.library.impl.run.CalibrationTask;
import java.util.List;

/** The arguments of one performCalibration, understood and checked. Immutable. */
final class CalibrationOrder {
  final int mode;
  final CalibrationTask task;
  final String text;

  private CalibrationOrder(int mode, CalibrationTask task, String text) {
    this.mode = mode;
    this.task = task;
    this.text = text;
  }

  /**
   * The last entry of the list that is not null is the target and its index the mode. With external
   * sensors, the light of the room is what the monitor's own sensor sees, whatever the target says.
   */
  static CalibrationOrder of(
      MonitorDevice device,
      List<?> targets,
      boolean useExternalSensors,
      int graylevelCount,
      boolean measureBacklightResponse,
      String text) {
    int mode = modeOf(targets);
    Object last = targets.get(mode);
    if (!(last instanceof CalibrationTargetValues)) {
      throw new IllegalArgumentException("Not a calibration target: " + last.getClass().getName());
    }
    int tables = device.model().tables.size();
    if (mode >= tables) {
      throw new IllegalArgumentException(
          device.name() + " has no look-up table " + mode + ", only 0 to " + (tables - 1));
    }
    Settings settings = device.settings();
    CalibrationTargetValues target = new CalibrationTargetValues((CalibrationTargetValues) last);
    if (useExternalSensors) {
      target.setAmbientLightValue(settings.number("ambient", 0.1));
    }
    CalibrationTask task =
        new CalibrationTask(
            target,
            graylevelCount,
            measureBacklightResponse,
            device.model().panel.isMonochrome(),
            PanelLink.lutBits(settings),
            (int) settings.integer("warmup.rounds", 3, 0, 1000));
    return new CalibrationOrder(mode, task, text == null ? "" : text);
  }

  private static int modeOf(List<?> targets) {
    if (targets == null) {
      throw new IllegalArgumentException("No list of calibration targets");
    }
    for (int i = targets.size() - 1; i >= 0; --i) {
      if (targets.get(i) != null) {
        return i;
      }
    }
    throw new IllegalArgumentException("No calibration target in the list");
  }
}
