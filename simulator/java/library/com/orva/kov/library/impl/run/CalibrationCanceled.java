// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

/** Ends a calibration that the program or another thread has canceled. */
public final class CalibrationCanceled extends Exception {
  private static final long serialVersionUID = 1L;

  public CalibrationCanceled() {
    super("The calibration was canceled", null, false, false);
  }
}
