// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.util.List;

/** A program of which one operation fails, "window closed". */
final class FailingInstrument extends Instrument {
  static final int OPERATIONS = 6;

  private final int failing;

  /** Number of the operation that fails, from 0. */
  FailingInstrument(SimulatedMonitor monitor, int failing) {
    super(monitor);
    this.failing = failing;
  }

  @Override
  public void showTestPattern(int red, int green, int blue) {
    pass(0);
    super.showTestPattern(red, green, blue);
  }

  @Override
  protected double[] reading() {
    pass(1);
    return super.reading();
  }

  /** Fails at the last one, when everything is recorded already. */
  @Override
  public void progress(int percent) {
    if (percent == 100) {
      pass(2);
    }
    super.progress(percent);
  }

  @Override
  public boolean finish(List<CalibrationResultValues> results) {
    pass(3);
    return super.finish(results);
  }

  @Override
  public String instrumentSerialNumber() {
    pass(4);
    return super.instrumentSerialNumber();
  }

  @Override
  public int instrumentType() {
    pass(5);
    return super.instrumentType();
  }

  private void pass(int operation) {
    if (operation == failing) {
      throw new UnsupportedOperationException("window closed");
    }
  }
}
