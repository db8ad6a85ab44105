// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.curve.GrayscaleFunction;
import com.orva.kov.library.impl.curve.Lightness;
import java.io.IOException;
import java.util.function.DoubleUnaryOperator;

/** Each display function, as the calibrated screen shows it. */
public final class DisplayFunctionTest {
  private static final double DARKEST = 0.5;
  private static final double BRIGHTEST = 250.0;
  private static final double AMBIENT = 0.1;

  public static void main(String[] arguments) {
    Suite.run(DisplayFunctionTest.class);
  }

  public static void dicom() throws IOException {
    double first = GrayscaleFunction.index(DARKEST + AMBIENT);
    double last = GrayscaleFunction.index(BRIGHTEST + AMBIENT);
    DoubleUnaryOperator wanted =
        level -> GrayscaleFunction.luminance(first + level * (last - first)) - AMBIENT;
    expect(wanted, Lab.target("Dicom 14"));
  }

  public static void cie1976() throws IOException {
    expect(DisplayFunctionTest::lightness, Lab.target("CIE 1976"));
  }

  public static void cieDin6174IsTheSameLightness() throws IOException {
    expect(DisplayFunctionTest::lightness, Lab.target("CIE DIN 6174"));
  }

  public static void gammaFunction() throws IOException {
    for (double exponent : new double[] {1.0, 1.8, 2.2}) {
      CalibrationTargetValues target = Lab.target("Gamma Function");
      target.setGammaValue(exponent);
      expect(level -> power(level, exponent), target);
    }
  }

  public static void crtIsAGammaOfTwoPointTwo() throws IOException {
    expect(level -> power(level, 2.2), Lab.target("CRT"));
  }

  public static void logarithmic() throws IOException {
    double ratio = (BRIGHTEST + AMBIENT) / (DARKEST + AMBIENT);
    expect(
        level -> (DARKEST + AMBIENT) * Math.pow(ratio, level) - AMBIENT,
        Lab.target("Logarithmic Luminance Linear"));
  }

  public static void userDefinedIsStretchedToTheRange() throws IOException {
    CalibrationTargetValues target = Lab.target("Userdefined");
    target.setUserDefinedData(new double[] {10.0, 20.0, 50.0, 110.0});
    DoubleUnaryOperator wanted =
        level -> {
          double place = 3.0 * level;
          double share = place < 1 ? place / 10 : place < 2 ? 0.1 + 0.3 * (place - 1)
              : 0.4 + 0.6 * (place - 2);
          return DARKEST + (BRIGHTEST - DARKEST) * share;
        };
    expect(wanted, target);
  }

  public static void originalLeavesThePanelAsItIs() throws IOException {
    CalibrationTargetValues target = new CalibrationTargetValues();
    target.setGammaModelType("Original");
    expectNative(target);
  }

  public static void undefinedAsksForNothing() throws IOException {
    expectNative(new CalibrationTargetValues());
    CalibrationTargetValues target = new CalibrationTargetValues();
    target.setGammaModelType(null);
    expectNative(target);
    target.setGammaModelType("");
    expectNative(target);
  }

  public static void originalKeepsToTheRange() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, Lab.target("Original"));
    Check.nearShare(BRIGHTEST, Lab.emission(monitor, 255)[0], 0.002, "white");
    Check.nearShare(DARKEST, Lab.emission(monitor, 0)[0], 0.01, "black");
  }

  public static void unknownNamesAreRefused() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Check.fails(
        IllegalArgumentException.class,
        "Unknown gamma model type: dicom 14",
        () -> Lab.calibrate(monitor, Lab.target("dicom 14")));
  }

  public static void curvesThatCannotBeAreRefused() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    for (double exponent : new double[] {0.0, -1.0, Double.NaN, 11.0}) {
      CalibrationTargetValues target = Lab.target("Gamma Function");
      target.setGammaValue(exponent);
      refused(monitor, target, "A gamma of " + exponent);
    }
    CalibrationTargetValues target = Lab.target("Userdefined");
    refused(monitor, target, "needs two points");
    target.setUserDefinedData(null);
    refused(monitor, target, "needs two points");
    target.setUserDefinedData(new double[] {0.0, 0.5, 0.4, 1.0});
    refused(monitor, target, "does not rise at point 2");
    target.setUserDefinedData(new double[] {0.0, Double.NaN});
    refused(monitor, target, "does not rise at point 1");
    target.setUserDefinedData(new double[] {3.0, 3.0});
    refused(monitor, target, "flat");
  }

  private static void refused(
      SimulatedMonitor monitor, CalibrationTargetValues target, String message) {
    Check.fails(IllegalArgumentException.class, message, () -> Lab.calibrate(monitor, target));
  }

  private static double lightness(double level) {
    double white = BRIGHTEST + AMBIENT;
    double first = Lightness.of((DARKEST + AMBIENT) / white);
    return white * Lightness.inverse(first + level * (100.0 - first)) - AMBIENT;
  }

  private static double power(double level, double exponent) {
    return DARKEST + (BRIGHTEST - DARKEST) * Math.pow(level, exponent);
  }

  /** At every fifth level, within what 12 bits and 52 measured levels can do. */
  private static void expect(DoubleUnaryOperator wanted, CalibrationTargetValues target)
      throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, target);
    for (int level = 0; level <= 255; level += 5) {
      double luminance = wanted.applyAsDouble(level / 255.0);
      double shown = Lab.emission(monitor, level)[0];
      Check.nearShare(luminance, shown, 0.01, target.getGammaModelType() + " at " + level);
    }
  }

  private static void expectNative(CalibrationTargetValues target) throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    double[] before = Lab.seen(monitor, 0.0);
    Lab.calibrate(monitor, target);
    double[] after = Lab.seen(monitor, 0.0);
    for (int i = 0; i < before.length; ++i) {
      Check.near(before[i], after[i], 1e-9, "level " + 15 * i);
    }
  }
}
