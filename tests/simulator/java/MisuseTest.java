// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.io.IOException;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;

/** What a calibration refuses, and how it says so. */
public final class MisuseTest {
  public static void main(String[] arguments) {
    Suite.run(MisuseTest.class);
  }

  public static void noTarget() {
    refused("No list of calibration targets", null, 0);
    refused("No calibration target in the list", new ArrayList<>(), 0);
    refused("No calibration target in the list", Arrays.asList(null, null), 0);
  }

  @SuppressWarnings({"unchecked", "rawtypes"})
  public static void somethingElseInTheList() {
    refused("Not a calibration target: java.lang.String", (List) List.of("target"), 0);
  }

  public static void aModeThatTheMonitorLacks() {
    refused("no look-up table 5, only 0 to 4", Lab.at(5, Lab.target("Dicom 14")), 0);
  }

  public static void numbersOfLevelsThatCannotBe() {
    for (int levels : new int[] {-1, 1, 2, 257}) {
      refused(levels + " gray levels", Lab.at(0, Lab.target("Dicom 14")), levels);
    }
  }

  public static void luminancesThatCannotBe() {
    for (double value : new double[] {-1.0, Double.NaN, Double.POSITIVE_INFINITY}) {
      CalibrationTargetValues target = Lab.target("Dicom 14");
      target.setMaxLuminance(value);
      refused("Not luminances", Lab.at(0, target), 0);
      target = Lab.target("Dicom 14");
      target.setMinLuminance(value);
      refused("Not luminances", Lab.at(0, target), 0);
      target = Lab.target("Dicom 14");
      target.setAmbientLightValue(value);
      refused("Not luminances", Lab.at(0, target), 0);
    }
  }

  public static void blackAboveWhite() {
    CalibrationTargetValues target = Lab.target("Dicom 14");
    target.setMinLuminance(250.0);
    refused("Black is to be 250.0 cd/m2 and white 250.0 cd/m2", Lab.at(0, target), 0);
    target.setMinLuminance(400.0);
    target.setMaxLuminance(0.0);
    refused("Black would be 400.0 cd/m2 and white 332.", Lab.at(0, target), 0);
  }

  public static void measurementsThatAreNone() {
    badReading(new double[0], "The measurement has 0 values");
    badReading(new double[] {1.0, 0.3}, "The measurement has 2 values");
    badReading(new double[] {1.0, 0.3, 0.3, 0.0}, "The measurement has 4 values");
    badReading(new double[] {Double.NaN, 0.3, 0.3}, "not a number: [NaN, 0.3, 0.3]");
    badReading(new double[] {1.0, Double.POSITIVE_INFINITY, 0.3}, "not a number");
    badReading(new double[] {-0.5, 0.3, 0.3}, "negative: -0.5");
  }

  public static void anInstrumentThatLooksElsewhere() {
    badReading(new double[] {3.0, 0.3, 0.3}, "Black measures as bright as white");
  }

  /** Without a program behind the natives, the Java machine's own error comes out. */
  public static void nativesThatNobodyRegistered() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    double[] before = Lab.seen(monitor, 0.0);
    Check.fails(
        UnsatisfiedLinkError.class,
        "jniSendProgress",
        () -> monitor.performCalibration(
            Lab.at(0, Lab.target("Dicom 14")), false, 0, false, "", 1L));
    Check.that(Arrays.equals(before, Lab.seen(monitor, 0.0)), "picture");
  }

  public static void aNullTextIsAnEmptyOne() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.performCalibration(
        Lab.at(0, Lab.target("Dicom 14")), false, 0, false, null, new Instrument(monitor));
    Check.same("", monitor.extractCalibrationData().get(0).getPerformer(), "performer");
  }

  private static void refused(String message, List<CalibrationTargetValues> targets, int levels) {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Check.fails(
        IllegalArgumentException.class,
        message,
        () ->
            monitor.performCalibration(
                targets, false, levels, false, "", new Instrument(monitor)));
  }

  private static void badReading(double[] values, String message) {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument bad =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            return values;
          }
        };
    Check.fails(
        IOException.class,
        message,
        () ->
            monitor.performCalibration(
                Lab.at(0, Lab.target("Dicom 14")), false, 0, false, "", bad));
  }
}
