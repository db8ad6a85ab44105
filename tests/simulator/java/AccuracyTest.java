// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.curve.ContrastResponse;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import java.io.IOException;

/** How good a calibration gets: 0.5 to 250 cd/m², room light 0.1, 52 levels, 12 bits. */
public final class AccuracyTest {
  private static final double AMBIENT = 0.1;

  public static void main(String[] arguments) {
    Suite.run(AccuracyTest.class);
  }

  public static void withoutNoiseWithinOnePercent() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationOutcome outcome = Lab.calibrate(monitor, Lab.target("Dicom 14"));
    double deviation = ContrastResponse.largestDeviation(Lab.seen(monitor, AMBIENT));
    Check.atMost(0.01, deviation, "largest contrast deviation");
    Check.near(deviation, outcome.largestContrastDeviation(), 1e-9, "the same as was verified");
    Check.nearShare(250.0, outcome.maxLuminance(), 0.002, "white");
    Check.nearShare(0.5, outcome.minLuminance(), 0.005, "black");
  }

  public static void withNoiseWithinThreeAndAHalfPercent() throws IOException {
    double worst = 0.0;
    for (int seed = 1; seed <= 20; ++seed) {
      Lab.fresh("noise=on", "seed=" + seed);
      SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
      CalibrationOutcome outcome = Lab.calibrate(monitor, Lab.target("Dicom 14"));
      double measured = outcome.largestContrastDeviation();
      double real = ContrastResponse.largestDeviation(Lab.seen(monitor, AMBIENT));
      Check.atMost(0.035, measured, "measured deviation with seed " + seed);
      Check.atMost(0.035, real, "real deviation with seed " + seed);
      worst = Math.max(worst, measured);
    }
    // The noise is there: without it the deviation would be that of the table's width.
    Check.atLeast(0.01, worst, "worst of the twenty");
  }

  public static void uncalibratedFarFromTheFunction() {
    Lab.fresh();
    double[] seen = Lab.seen(Lab.monitor(Lab.COLOUR), AMBIENT);
    Check.atLeast(0.40, ContrastResponse.largestDeviation(seen), "largest contrast deviation");
  }

  public static void eightBitsAreWorseThanTwelve() throws IOException {
    Lab.fresh("lut.bits=8");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, Lab.target("Dicom 14"));
    double deviation = ContrastResponse.largestDeviation(Lab.seen(monitor, AMBIENT));
    Check.atLeast(0.03, deviation, "largest contrast deviation");
    Check.atMost(0.10, deviation, "largest contrast deviation");
  }

  public static void anyNumberOfLevelsWillDo() throws IOException {
    for (int levels : new int[] {3, 9, 18, 64, 256}) {
      Lab.fresh();
      SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
      monitor.performCalibration(
          Lab.at(0, Lab.target("Dicom 14")), false, levels, false, "", new Instrument(monitor));
      double deviation = ContrastResponse.largestDeviation(Lab.seen(monitor, AMBIENT));
      Check.atMost(levels < 9 ? 0.25 : 0.03, deviation, levels + " levels");
    }
  }

  public static void everyPanelCanBeCalibrated() throws IOException {
    for (String serial : new String[] {Lab.MONOCHROME, Lab.SHORT_SERIAL, Lab.NO_HISTORY}) {
      Lab.fresh();
      SimulatedMonitor monitor = Lab.monitor(serial);
      CalibrationTargetValues target = Lab.target("Dicom 14");
      Lab.calibrate(monitor, target);
      double deviation = ContrastResponse.largestDeviation(Lab.seen(monitor, AMBIENT));
      Check.atMost(0.02, deviation, serial);
    }
  }

  /**
   * A cold panel is not seen in the contrast, since all of its light is missing alike: white gets
   * too bright when it has warmed up.
   */
  public static void coldPanelEndsTooBright() throws IOException {
    Lab.fresh("panel.start=cold");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationOutcome outcome = Lab.calibrate(monitor, Lab.target("Dicom 14"));
    // It goes on warming up while it is calibrated.
    Check.nearShare(250.0, outcome.maxLuminance(), 0.02, "white when calibrated");
    monitor.panel().waitSeconds(7200.0);
    double white = Lab.emission(monitor, 255)[0];
    Check.atLeast(1.05 * 250.0, white, "white when warm");
    Check.atMost(1.10 * 250.0, white, "white when warm");
    Check.atMost(
        0.05, ContrastResponse.largestDeviation(Lab.seen(monitor, AMBIENT)), "contrast when warm");
  }

  public static void enoughPatienceCuresTheCold() throws IOException {
    Lab.fresh("panel.start=cold", "warmup.rounds=60");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, Lab.target("Dicom 14"));
    monitor.panel().waitSeconds(7200.0);
    // It stops waiting when a minute brings less than half a percent.
    Check.nearShare(250.0, Lab.emission(monitor, 255)[0], 0.06, "white when warm");
  }
}
