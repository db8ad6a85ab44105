// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationResultValues;
import java.util.List;

/**
 * The program that a calibration measures through. Native programs stand behind {@link
 * CallbackHost}; a program in Java implements this itself. Everything is called on the thread that
 * runs the calibration.
 */
public interface MeasuringHost {
  /** Shows a uniform patch; components 0 to 255. */
  void showTestPattern(int red, int green, int blue);

  /** Luminance in cd/m², CIE 1931 x, y of the patch on the screen; null cancels the calibration. */
  double[] measure();

  /** Percent, 0 to 100, never going back. */
  void progress(int percent);

  /** Takes one result per mode up to the calibrated one; false refuses them. */
  boolean finish(List<CalibrationResultValues> results);

  String instrumentSerialNumber();

  /** See {@link com.orva.kov.library.api.MeasurementDeviceType#getId}. */
  int instrumentType();
}
