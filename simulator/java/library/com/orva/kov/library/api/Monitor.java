// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

import java.io.IOException;
import java.util.List;

/** One connected monitor. */
public interface Monitor {
  /** Ends a running calibration at its next step; may be called from any thread. */
  void abortCalibration();

  /**
   * The calibration history: first one entry per look-up table in index order, the one now in force,
   * then the older ones, newest first.
   */
  List<ExtractedCalibrationData> extractCalibrationData();

  LookUpTable getActiveLut();

  /** "Color" or "Monochrome". */
  String getColorType();

  String getConnectionType();

  EdidInformation getEdidInformation();

  /** In index order from 0. */
  List<LookUpTable> getLookUpTables();

  String getModel();

  Osd getOsd();

  String getSerialNumber();

  /** Hours that the monitor has been on. */
  int getWorkingHours();

  /**
   * Calibrates one look-up table and returns when that is over. The last entry of the list that is
   * not null is the target, its index the table. 0 gray levels stand for 52. The text is kept in the
   * history. The handle comes back in every call of {@link CallbackJniFunctions}.
   */
  void performCalibration(
      List<CalibrationTargetValues> targets,
      boolean useExternalSensors,
      int graylevelCount,
      boolean measureBacklightResponse,
      String text,
      long handle)
      throws IOException;
}
