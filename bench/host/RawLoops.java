// SPDX-License-Identifier: MIT

/** Calls the functions that are registered by hand; otherwise as {@link CallbackLoops}. */
final class RawLoops {
  private RawLoops() {}

  static void progress(int count, long handle) {
    RawFunctions functions = new RawFunctions();
    for (int i = 0; i < count; ++i) {
      functions.jniSendProgress(i & 63, handle);
    }
  }

  static void patch(int count, long handle) {
    RawFunctions functions = new RawFunctions();
    for (int i = 0; i < count; ++i) {
      functions.jniDrawTestpattern(i & 255, i & 127, i & 63, handle);
    }
  }

  static double measure(int count, long handle) {
    RawFunctions functions = new RawFunctions();
    double sum = 0.0;
    for (int i = 0; i < count; ++i) {
      sum += functions.jniMeasureLuminance(handle)[0];
    }
    return sum;
  }
}
