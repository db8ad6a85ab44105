// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

import java.util.List;

/**
 * What the library asks of the program that started a calibration. The program registers the six
 * methods before it calls {@link Monitor#performCalibration}; without that, the first call ends in
 * an {@link UnsatisfiedLinkError}. All of them run on the thread of performCalibration.
 *
 * <p>The last argument of each is the handle that the program gave to performCalibration.
 */
public class CallbackJniFunctions {
  /** Progress in percent, 0 to 100, never going back. */
  public native void jniSendProgress(int percent, long handle);

  /** Shows a uniform patch; components 0 to 255. */
  public native void jniDrawTestpattern(int red, int green, int blue, long handle);

  /**
   * Measures the patch on the screen: luminance in cd/m², CIE 1931 x, y. Null means that the program
   * has canceled the calibration.
   */
  public native double[] jniMeasureLuminance(long handle);

  /** Hands over one {@link CalibrationResultValues} per mode. False means it was not accepted. */
  public native boolean jniFinishCalibration(List<CalibrationResultValues> results, long handle);

  /** Serial number of the measuring instrument. */
  public native String jniGetMeasurementSerialNumber(long handle);

  /** Code of the measuring instrument, see {@link MeasurementDeviceType#getId}. */
  public native int jniGetMeasurementType(long handle);
}
