// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import java.io.IOException;

/** Black, white, backlight and the light of the room. */
public final class LuminanceTest {
  public static void main(String[] arguments) {
    Suite.run(LuminanceTest.class);
  }

  public static void theBacklightDoesWhatItCan() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationOutcome outcome = Lab.calibrate(monitor, target(0.0, 250.0));
    Check.same((int) Math.round(1000.0 * 250.0 / 332.0), outcome.sensor(), "sensor");
    Check.nearShare(0.34 * 250.0 / 332.0, outcome.minLuminance(), 0.01, "black dims with it");
  }

  public static void theTableDoesTheRest() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationOutcome outcome = Lab.calibrate(monitor, target(0.1, 10.0));
    Check.same(100, outcome.sensor(), "the backlight is at its darkest");
    Check.nearShare(10.0, outcome.maxLuminance(), 0.005, "white");
    Check.nearShare(0.1, outcome.minLuminance(), 0.02, "black");
  }

  public static void whatThePanelCannotReachItComesNear() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationOutcome outcome = Lab.calibrate(monitor, target(0.01, 1000.0));
    Check.nearShare(332.0, outcome.maxLuminance(), 1e-9, "white");
    Check.nearShare(0.34, outcome.minLuminance(), 1e-9, "black");
    Check.same(1000, outcome.sensor(), "sensor");
  }

  public static void noWhiteGivenMeansThePanelsOwn() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationOutcome outcome = Lab.calibrate(monitor, target(0.5, 0.0));
    Check.nearShare(332.0, outcome.maxLuminance(), 1e-9, "white");
    Check.nearShare(0.5, outcome.minLuminance(), 0.01, "black");
  }

  public static void measuredBlackGoesIntoTheRecord() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationTargetValues target = target(5.0, 250.0);
    target.setUseMinimumLuminance(false);
    CalibrationOutcome outcome = Lab.calibrate(monitor, target);
    double black = 0.34 * 250.0 / 332.0;
    Check.nearShare(black, outcome.minLuminance(), 0.01, "black is not lifted");
    double recorded =
        monitor.extractCalibrationData().get(0).getCalibrationTargetValues().getMinLuminance();
    Check.near(outcome.minLuminance(), recorded, 1e-12, "recorded black");
  }

  public static void theGivenBlackGoesIntoTheRecordAsGiven() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, target(0.5, 250.0));
    double recorded =
        monitor.extractCalibrationData().get(0).getCalibrationTargetValues().getMinLuminance();
    Check.near(0.5, recorded, 1e-12, "recorded black");
  }

  public static void theBacklightResponseIsMeasuredOnRequest() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument plain = new Instrument(monitor);
    monitor.performCalibration(Lab.at(0, target(0.5, 200.0)), false, 0, false, "", plain);
    Instrument thorough = new Instrument(monitor);
    CalibrationOutcome outcome =
        monitor.performCalibration(Lab.at(0, target(0.5, 200.0)), false, 0, true, "", thorough);
    Check.same(plain.measurements() + 3, thorough.measurements(), "measurements");
    Check.nearShare(200.0, outcome.maxLuminance(), 0.003, "white");
  }

  public static void aBacklightThatDoesNotFollowIsNoticed() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument stuck =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            // From the first dimmed white on, the reading stays the same.
            double[] values = super.reading();
            return measurements() > 2 + 6 + 3 + 52 ? new double[] {100.0, 0.3, 0.3} : values;
          }
        };
    Check.fails(
        IOException.class,
        "The backlight does not follow",
        () -> monitor.performCalibration(Lab.at(0, target(0.5, 200.0)), false, 0, true, "", stuck));
  }

  public static void externalSensorsTellTheLightOfTheRoom() throws IOException {
    Lab.fresh("ambient=0.7");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.performCalibration(
        Lab.at(0, target(0.5, 250.0)), true, 0, false, "", new Instrument(monitor));
    CalibrationTargetValues recorded =
        monitor.extractCalibrationData().get(0).getCalibrationTargetValues();
    Check.near(0.7, recorded.getAmbientLightValue(), 1e-12, "ambient light");
    Lab.calibrate(monitor, target(0.5, 250.0));
    recorded = monitor.extractCalibrationData().get(0).getCalibrationTargetValues();
    Check.near(0.1, recorded.getAmbientLightValue(), 1e-12, "ambient light of the target");
  }

  private static CalibrationTargetValues target(double min, double max) {
    CalibrationTargetValues target = Lab.target("Dicom 14");
    target.setMinLuminance(min);
    target.setMaxLuminance(max);
    return target;
  }
}
