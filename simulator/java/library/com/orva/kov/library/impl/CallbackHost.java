// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.api.CallbackJniFunctions;
import java.util.List;

/** The native program behind {@link CallbackJniFunctions}, with the handle that it gave. */
final class CallbackHost implements MeasuringHost {
  private final CallbackJniFunctions functions = new CallbackJniFunctions();
  private final long handle;

  CallbackHost(long handle) {
    this.handle = handle;
  }

  @Override
  public void showTestPattern(int red, int green, int blue) {
    functions.jniDrawTestpattern(red, green, blue, handle);
  }

  @Override
  public double[] measure() {
    return functions.jniMeasureLuminance(handle);
  }

  @Override
  public void progress(int percent) {
    functions.jniSendProgress(percent, handle);
  }

  @Override
  public boolean finish(List<CalibrationResultValues> results) {
    return functions.jniFinishCalibration(results, handle);
  }

  @Override
  public String instrumentSerialNumber() {
    return functions.jniGetMeasurementSerialNumber(handle);
  }

  @Override
  public int instrumentType() {
    return functions.jniGetMeasurementType(handle);
  }
}
