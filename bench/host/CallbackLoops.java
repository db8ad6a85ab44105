// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CallbackJniFunctions;

/** Calls the functions that the library registers, many times from one place. */
final class CallbackLoops {
  private CallbackLoops() {}

  static void progress(int count, long handle) {
    CallbackJniFunctions functions = new CallbackJniFunctions();
    for (int i = 0; i < count; ++i) {
      functions.jniSendProgress(i & 63, handle);
    }
  }

  static void patch(int count, long handle) {
    CallbackJniFunctions functions = new CallbackJniFunctions();
    for (int i = 0; i < count; ++i) {
      functions.jniDrawTestpattern(i & 255, i & 127, i & 63, handle);
    }
  }

  static double measure(int count, long handle) {
    CallbackJniFunctions functions = new CallbackJniFunctions();
    double sum = 0.0;
    for (int i = 0; i < count; ++i) {
      sum += functions.jniMeasureLuminance(handle)[0];
    }
    return sum;
  }
}
