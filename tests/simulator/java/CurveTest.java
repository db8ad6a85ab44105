// SPDX-License-Identifier: MIT
import com.orva.kov.library.impl.curve.ContrastResponse;
import com.orva.kov.library.impl.curve.GrayscaleFunction;
import com.orva.kov.library.impl.curve.Lightness;
import com.orva.kov.library.impl.curve.ToneCurve;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;

/** The display functions against published values and against DCMTK's dcmdspfn. */
public final class CurveTest {
  public static void main(String[] arguments) {
    Suite.run(CurveTest.class);
  }

  public static void grayscaleFunctionHasThePublishedValues() {
    double[][] values = {
      {1, 0.049982}, {100, 1.850833}, {300, 23.398919}, {512, 130.065284}, {1023, 3993.329586}
    };
    for (double[] value : values) {
      // The shortest of the published values has five digits, so its last one decides.
      double tolerance = Math.max(1e-6 * value[1], 5e-7);
      Check.near(value[1], GrayscaleFunction.luminance(value[0]), tolerance, "j = " + value[0]);
    }
  }

  public static void grayscaleFunctionRises() {
    double last = 0.0;
    for (double j = 1.0; j <= 1023.0; j += 0.25) {
      double now = GrayscaleFunction.luminance(j);
      Check.that(now > last, "rises at " + j);
      last = now;
    }
  }

  public static void indexIsTheInverse() {
    for (double j = 1.0; j <= 1023.0; j += 0.73) {
      Check.near(j, GrayscaleFunction.index(GrayscaleFunction.luminance(j)), 1e-8, "j = " + j);
    }
    Check.near(1.0, GrayscaleFunction.index(0.0), 1e-12, "below the first");
    Check.near(1023.0, GrayscaleFunction.index(1e5), 1e-12, "above the last");
  }

  public static void lightnessHasTheKnownValues() {
    // CIE 015: half lightness is 18.4 % of white.
    Check.near(100.0, Lightness.of(1.0), 1e-12, "white");
    Check.near(0.0, Lightness.of(0.0), 1e-12, "black");
    Check.near(50.0, Lightness.of(0.18418651851244416), 1e-9, "middle gray");
    for (double l = 0.0; l <= 100.0; l += 0.5) {
      Check.near(l, Lightness.of(Lightness.inverse(l)), 1e-10, "L* = " + l);
    }
  }

  public static void dcmdspfnAgreesOnTheGrayscaleFunction() throws Exception {
    double[][] ranges = {{0.5, 250, 0.1}, {0.34, 332, 0}, {1.2, 900, 0.7}, {0.1, 80, 0.05}};
    for (double[] range : ranges) {
      double[] oracle = dcmdspfn("+Og", range);
      // That program places its ends by the inverse which the standard prints.
      double first = printedIndex(range[0] + range[2]);
      double last = printedIndex(range[1] + range[2]);
      for (int i = 0; i < oracle.length; ++i) {
        double mine = GrayscaleFunction.luminance(first + i * (last - first) / 255.0);
        // It prints six digits after the point.
        Check.near(oracle[i], mine, 1e-6 * oracle[i] + 5e-7, "level " + i + " of " + range[1]);
      }
    }
  }

  public static void dcmdspfnAgreesOnTheCurveThatIsCalibrated() throws Exception {
    double[] range = {0.5, 250, 0.1};
    double[] oracle = dcmdspfn("+Og", range);
    ToneCurve curve = ToneCurve.grayscaleStandard(range[2]);
    for (int i = 0; i < oracle.length; ++i) {
      double mine = curve.luminance(i / 255.0, range[0], range[1]) + range[2];
      // The printed inverse is up to 0.09 JND off, which is 0.1 % of a luminance here.
      Check.nearShare(oracle[i], mine, 1.5e-3, "level " + i);
    }
  }

  public static void dcmdspfnAgreesOnLightness() throws Exception {
    double[][] ranges = {{0.5, 250, 0.1}, {0.34, 332, 0}, {2.0, 100, 1.0}};
    for (double[] range : ranges) {
      double[] oracle = dcmdspfn("+Oc", range);
      ToneCurve curve = ToneCurve.lightness(range[2]);
      for (int i = 0; i < oracle.length; ++i) {
        double mine = curve.luminance(i / 255.0, range[0], range[1]) + range[2];
        // It uses the rounded constants 0.008856 and 903.3.
        Check.near(oracle[i], mine, 1e-4 * oracle[i] + 5e-7, "level " + i + " of " + range[1]);
      }
    }
  }

  public static void contrastDeviationIsZeroOnTheFunctionItself() {
    double[] luminances = new double[18];
    double first = GrayscaleFunction.index(0.6);
    double last = GrayscaleFunction.index(250.1);
    for (int i = 0; i < luminances.length; ++i) {
      luminances[i] = GrayscaleFunction.luminance(first + i * (last - first) / 17.0);
    }
    Check.atMost(1e-9, ContrastResponse.largestDeviation(luminances), "deviation");
    // One level 1 % too bright: the step below it is wrong by 1 % of a luminance, and says so.
    luminances[9] *= 1.01;
    double step = 2.0 * (luminances[9] - luminances[8]) / (luminances[9] + luminances[8]);
    double right = luminances[9] / 1.01;
    double wanted = 2.0 * (right - luminances[8]) / (right + luminances[8]);
    double above = 2.0 * (luminances[10] - luminances[9]) / (luminances[10] + luminances[9]);
    double wantedAbove = 2.0 * (luminances[10] - right) / (luminances[10] + right);
    double expected =
        Math.max(
            Math.abs(step - wanted) / wanted, Math.abs(above - wantedAbove) / wantedAbove);
    Check.near(expected, ContrastResponse.largestDeviation(luminances), 1e-9, "one level off");
  }

  /** The inverse of DICOM PS3.14, section 7.1, as printed. */
  private static double printedIndex(double luminance) {
    double[] coefficients = {
      71.498068, 94.593053, 41.912053, 9.8247004, 0.28175407, -1.1878455, -0.18014349, 0.14710899,
      -0.017046845
    };
    double x = Math.log10(luminance);
    double index = 0.0;
    for (int i = coefficients.length - 1; i >= 0; --i) {
      index = index * x + coefficients[i];
    }
    return index;
  }

  /** The 256 luminances that dcmdspfn computes for a range {darkest, brightest, ambient}. */
  private static double[] dcmdspfn(String output, double[] range)
      throws IOException, InterruptedException {
    String program = System.getProperty("dcmdspfn", "");
    if (program.isEmpty()) {
      throw new Suite.Skip("dcmdspfn was not found when the build was set up (Debian: dcmtk)");
    }
    Path file = Lab.folder().resolve("curve.txt");
    Process process =
        new ProcessBuilder(
                program,
                "+Il",
                Double.toString(range[0]),
                Double.toString(range[1]),
                "+Ca",
                Double.toString(range[2]),
                output,
                file.toString())
            .inheritIO()
            .start();
    Check.same(0, process.waitFor(), "dcmdspfn");
    List<String> lines = Files.readAllLines(file);
    double[] luminances =
        lines.stream()
            .filter(line -> line.matches("[0-9]+\t.*"))
            .mapToDouble(line -> Double.parseDouble(line.split("\t")[1]))
            .toArray();
    Check.same(256, luminances.length, "levels of dcmdspfn");
    return luminances;
  }
}
