// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.KovMonitorLibrary;
import com.orva.kov.library.impl.MeasuringHost;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.panel.PanelLink;
import java.io.IOException;
import java.util.List;

/** A calibration without any program around it: the same target and panel, driven from Java. */
final class JavaHost implements MeasuringHost {
  private final PanelLink panel;
  private int steps;

  private JavaHost(PanelLink panel) {
    this.panel = panel;
  }

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
    JavaHost host = new JavaHost(monitor.panel());
    monitor.performCalibration(List.of(target), false, 52, false, "bench", host);
    return host.steps;
  }

  @Override
  public void showTestPattern(int red, int green, int blue) {
    ++steps;
    panel.show(red / 255.0, green / 255.0, blue / 255.0);
  }

  @Override
  public double[] measure() {
    ++steps;
    return panel.measure();
  }

  @Override
  public void progress(int percent) {}

  @Override
  public boolean finish(List<CalibrationResultValues> results) {
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
