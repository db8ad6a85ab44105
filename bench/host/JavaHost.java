// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.KovMonitorLibrary;
import com.orva.kov.library.impl.MeasuringHost;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.io.IOException;
import java.util.List;

/** A calibration without any program around it but the instrument's library: driven from Java. */
final class JavaHost implements MeasuringHost {
  private final long meter = openMeter();
  private int steps;
  private CalibrationResultValues result;

  private JavaHost() {}

  // The instrument's library; registered by the program.
  private static native long openMeter();

  private static native void closeMeter(long meter);

  private static native void show(long meter, double red, double green, double blue);

  private static native double[] measure(long meter);

  /** The number of patches and measurements. */
  static int calibrate(String model, String serial) throws IOException {
    SimulatedMonitor monitor =
        (SimulatedMonitor) KovMonitorLibrary.getInstance().getMonitor(model, serial);
    CalibrationTargetValues target = new CalibrationTargetValues();
    target.setMaxLuminance(250.0);
    target.setMinLuminance(0.5);
    target.setUseMinimumLuminance(true);
    target.setAmbientLightValue(0.1);
    target.setGammaModelType("Dicom 14");
    target.setGammaModelTag(
        monitor.extractCalibrationData().get(0).getCalibrationTargetValues().getGammaModelTag());
    JavaHost host = new JavaHost();
    try {
      monitor.performCalibration(List.of(target), false, 52, false, "bench", host);
      return host.result.getBacklightSensorValue() > 0 ? host.steps : -1;
    } finally {
      closeMeter(host.meter);
    }
  }

  @Override
  public void showTestPattern(int red, int green, int blue) {
    ++steps;
    show(meter, red / 255.0, green / 255.0, blue / 255.0);
  }

  @Override
  public double[] measure() {
    ++steps;
    return measure(meter);
  }

  @Override
  public void progress(int percent) {}

  @Override
  public boolean finish(List<CalibrationResultValues> results) {
    result = results.get(results.size() - 1);
    return true;
  }

  @Override
  public String instrumentSerialNumber() {
    return "METER-17";
  }

  @Override
  public int instrumentType() {
    return 7;
  }
}
