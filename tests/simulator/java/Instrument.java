// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.impl.MeasuringHost;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.util.ArrayList;
import java.util.List;

/** A program that measures the simulated screen, and writes down what it was asked. */
class Instrument implements MeasuringHost {
  /** One word per call: "type", "serial", "progress N", "patch R G B", "measure", "finish N". */
  final List<String> log = new ArrayList<>();

  List<CalibrationResultValues> results;

  protected final SimulatedMonitor monitor;
  private int measurements;

  Instrument(SimulatedMonitor monitor) {
    this.monitor = monitor;
  }

  /** Measurements so far, the running one included. */
  final int measurements() {
    return measurements;
  }

  @Override
  public void showTestPattern(int red, int green, int blue) {
    log.add("patch " + red + " " + green + " " + blue);
    monitor.panel().show(red / 255.0, green / 255.0, blue / 255.0);
  }

  @Override
  public final double[] measure() {
    log.add("measure");
    ++measurements;
    return reading();
  }

  /** What is answered; tests that need a bad instrument override it. */
  protected double[] reading() {
    return monitor.panel().measure();
  }

  @Override
  public void progress(int percent) {
    log.add("progress " + percent);
  }

  @Override
  public boolean finish(List<CalibrationResultValues> handedOver) {
    log.add("finish " + handedOver.size());
    results = new ArrayList<>(handedOver);
    return true;
  }

  @Override
  public String instrumentSerialNumber() {
    log.add("serial");
    return "SN-7";
  }

  @Override
  public int instrumentType() {
    log.add("type");
    return 7;
  }
}
