// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.io.IOException;

/** The colour of white, and what a monochrome monitor makes of it. */
public final class ColourTest {
  private static final double D65_X = 0.312779;
  private static final double D65_Y = 0.329183;

  public static void main(String[] arguments) {
    Suite.run(ColourTest.class);
  }

  public static void whiteGetsTheColourOfTheTarget() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Check.near(0.2990, Lab.emission(monitor, 255)[1], 1e-6, "x before");
    Lab.calibrate(monitor, white(D65_X, D65_Y));
    double[] shown = Lab.emission(monitor, 255);
    Check.nearShare(250.0, shown[0], 0.003, "luminance");
    Check.near(D65_X, shown[1], 2e-4, "x");
    Check.near(D65_Y, shown[2], 2e-4, "y");
  }

  public static void grayHasItTooWhereThePanelIsNotDark() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, white(D65_X, D65_Y));
    for (int level = 60; level <= 255; level += 15) {
      double[] shown = Lab.emission(monitor, level);
      Check.near(D65_X, shown[1], 3e-3, "x at " + level);
      Check.near(D65_Y, shown[2], 3e-3, "y at " + level);
    }
  }

  public static void noiseMovesItLittle() throws IOException {
    Lab.fresh("noise=on");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, white(D65_X, D65_Y));
    double[] shown = Lab.emission(monitor, 255);
    Check.near(D65_X, shown[1], 1e-3, "x");
    Check.near(D65_Y, shown[2], 1e-3, "y");
  }

  public static void anotherColourCostsLight() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationTargetValues target = white(0.345741, 0.358666);
    target.setMaxLuminance(332.0);
    Lab.calibrate(monitor, target);
    double[] shown = Lab.emission(monitor, 255);
    Check.near(0.345741, shown[1], 2e-4, "x");
    Check.atMost(300.0, shown[0], "luminance");
    Check.atLeast(200.0, shown[0], "luminance");
  }

  public static void withoutColourCalibrationWhiteStaysNative() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationTargetValues target = white(D65_X, D65_Y);
    target.setColorCalibration(false);
    Lab.calibrate(monitor, target);
    Check.near(0.2990, Lab.emission(monitor, 255)[1], 1e-4, "x");
  }

  public static void noColourAtAllLeavesWhiteNative() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, white(0.0, 0.0));
    Check.near(0.2990, Lab.emission(monitor, 255)[1], 1e-4, "x");
  }

  public static void coloursThatThePanelLacksAreRefused() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    refused(monitor, 0.70, 0.25, "The panel cannot show the colour");
    refused(monitor, 0.10, 0.80, "The panel cannot show the colour");
    refused(monitor, 0.90, 0.90, "There is no colour");
    refused(monitor, -0.10, 0.30, "There is no colour");
    refused(monitor, Double.NaN, 0.30, "There is no colour");
  }

  public static void aMeterWithoutColourCannotSetWhite() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument colourBlind =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            return new double[] {super.reading()[0], 0.0, 0.0};
          }
        };
    Check.fails(
        IOException.class,
        "The instrument measures no colour",
        () ->
            monitor.performCalibration(
                Lab.at(0, white(D65_X, D65_Y)), false, 0, false, "", colourBlind));
  }

  public static void aMonochromeMonitorKeepsItsWhite() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.MONOCHROME);
    Check.same("Monochrome", monitor.getColorType(), "type");
    double[] before = Lab.emission(monitor, 255);
    Instrument instrument = new Instrument(monitor);
    monitor.performCalibration(
        Lab.at(0, white(D65_X, D65_Y)), false, 0, false, "", instrument);
    double[] after = Lab.emission(monitor, 255);
    Check.near(before[1], after[1], 1e-9, "x");
    Check.near(before[2], after[2], 1e-9, "y");
    for (String line : instrument.log) {
      Check.that(!line.startsWith("patch") || line.matches("patch ([0-9]+) \\1 \\1"), line);
    }
  }

  private static CalibrationTargetValues white(double x, double y) {
    CalibrationTargetValues target = Lab.target("Dicom 14");
    target.setColorCalibration(true);
    target.setColorX(x);
    target.setColorY(y);
    return target;
  }

  /** The monitor is as it was afterwards. */
  private static void refused(SimulatedMonitor monitor, double x, double y, String message) {
    double[] before = Lab.seen(monitor, 0.0);
    Check.fails(
        IllegalArgumentException.class, message, () -> Lab.calibrate(monitor, white(x, y)));
    double[] after = Lab.seen(monitor, 0.0);
    for (int i = 0; i < before.length; ++i) {
      Check.near(before[i], after[i], 1e-12, "level " + 15 * i);
    }
  }
}
