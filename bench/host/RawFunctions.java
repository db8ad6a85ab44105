// SPDX-License-Identifier: MIT

/** The same functions, registered by hand. */
final class RawFunctions {
  native void jniSendProgress(int percent, long handle);

  native void jniDrawTestpattern(int red, int green, int blue, long handle);

  native double[] jniMeasureLuminance(long handle);
}
