// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.impl.panel.Table;

/** What a running calibration does with the monitor. On the calibrating thread. */
public interface Firmware {
  /** Loads a table into the mode that is being calibrated and shows pictures through it. */
  void load(Table table);

  /** Backlight sensor in counts. */
  int sensor();

  /** Lets the monitor warm up for so long, by its own clock. */
  void waitSeconds(double seconds);

  /**
   * Called before each patch and each measurement, with the name of the point. Gives way to an abort
   * and to what else may happen there.
   */
  void step(String point) throws CalibrationCanceled;

  /** Waits as long as a patch takes to settle, an abort notwithstanding. */
  void settle() throws CalibrationCanceled;
}
