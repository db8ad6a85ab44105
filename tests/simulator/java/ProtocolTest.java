// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;

/** What a calibration asks of the program, in which order. */
public final class ProtocolTest {
  public static void main(String[] arguments) {
    Suite.run(ProtocolTest.class);
  }

  public static void beginsWithTheInstrumentAndEndsWithTheResult() throws IOException {
    List<String> log = calibrate(Lab.COLOUR, 0).log;
    Check.same(List.of("progress 0", "type", "serial"), log.subList(0, 3), "beginning");
    int size = log.size();
    Check.same(List.of("progress 100", "finish 1"), log.subList(size - 2, size), "end");
  }

  public static void everyPatchIsDrawnMeasuredAndReported() throws IOException {
    List<String> log = calibrate(Lab.COLOUR, 0).log;
    for (int i = 3; i < log.size() - 2; i += 3) {
      Check.that(log.get(i).startsWith("patch "), log.get(i));
      Check.same("measure", log.get(i + 1), "after the patch");
      Check.that(log.get(i + 2).startsWith("progress "), log.get(i + 2));
    }
  }

  public static void progressNeverGoesBack() throws IOException {
    for (String start : new String[] {"warm", "cold"}) {
      int last = 0;
      for (String line : calibrate(Lab.COLOUR, 0, "panel.start=" + start).log) {
        if (line.startsWith("progress ")) {
          int percent = Integer.parseInt(line.substring(9));
          Check.that(percent >= last && percent <= 100, "progress " + last + " to " + percent);
          last = percent;
        }
      }
      Check.same(100, last, "last progress");
    }
  }

  /** Warm-up check, three blacks, three whites, primaries, gray levels, verification. */
  public static void measuresInTheOrderOfAHardwareCalibration() throws IOException {
    for (int levels : new int[] {0, 18}) {
      List<String> wanted = new ArrayList<>();
      for (int level : new int[] {255, 255, 0, 0, 0, 255, 255, 255}) {
        wanted.add(gray(level));
      }
      wanted.addAll(List.of("patch 255 0 0", "patch 0 255 0", "patch 0 0 255"));
      int count = levels == 0 ? 52 : levels;
      for (int i = 0; i < count; ++i) {
        wanted.add(gray(i * 255 / (count - 1)));
      }
      for (int i = 0; i < 18; ++i) {
        wanted.add(gray(15 * i));
      }
      Check.same(wanted, patches(calibrate(Lab.COLOUR, levels)), levels + " levels");
    }
  }

  public static void monochromeHasNoPrimaries() throws IOException {
    Check.same(2 + 6 + 52 + 18, patches(calibrate(Lab.MONOCHROME, 0)).size(), "patches");
  }

  public static void aColdPanelIsWaitedForSoManyRounds() throws IOException {
    int warm = calibrate(Lab.COLOUR, 0).measurements();
    int cold = calibrate(Lab.COLOUR, 0, "panel.start=cold", "warmup.rounds=5").measurements();
    Check.same(warm + 4, cold, "measurements");
    int none = calibrate(Lab.COLOUR, 0, "panel.start=cold", "warmup.rounds=0").measurements();
    Check.same(warm - 1, none, "measurements without waiting");
  }

  public static void thereIsOneResultPerModeUpToTheCalibratedOne() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument instrument = new Instrument(monitor);
    CalibrationOutcome outcome =
        monitor.performCalibration(
            Lab.at(2, Lab.target("Dicom 14")), false, 0, false, "", instrument);
    Check.same(3, instrument.results.size(), "results");
    for (int i = 0; i < 2; ++i) {
      CalibrationResultValues result = instrument.results.get(i);
      Check.same(0.0, result.getMaxLuminance(), "maximum of mode " + i);
      Check.same(0.0, result.getMinLuminance(), "minimum of mode " + i);
      Check.same(-1, result.getBacklightSensorValue(), "sensor of mode " + i);
    }
    CalibrationResultValues result = instrument.results.get(2);
    Check.same(outcome.maxLuminance(), result.getMaxLuminance(), "maximum");
    Check.same(outcome.minLuminance(), result.getMinLuminance(), "minimum");
    Check.same(outcome.sensor(), result.getBacklightSensorValue(), "sensor");
  }

  public static void theLastTargetCounts() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    var list = Lab.at(1, Lab.target("CIE 1976"));
    list.set(0, Lab.target("Dicom 14"));
    list.add(null);
    monitor.performCalibration(list, false, 0, false, "", new Instrument(monitor));
    Check.same(1, monitor.getActiveLut().getIndex(), "active table");
    Check.same(
        "CIE 1976",
        monitor.extractCalibrationData().get(1).getCalibrationTargetValues().getGammaModelType(),
        "recorded target");
  }

  public static void theSameSeedGivesTheSameCalibration() throws IOException {
    double[] first = outcome("seed=5").luminances();
    double[] second = outcome("seed=5").luminances();
    double[] other = outcome("seed=6").luminances();
    Check.that(java.util.Arrays.equals(first, second), "the same seed");
    Check.that(!java.util.Arrays.equals(first, other), "another seed");
  }

  private static CalibrationOutcome outcome(String seed) throws IOException {
    Lab.fresh("noise=on", seed);
    return Lab.calibrate(Lab.monitor(Lab.COLOUR), Lab.target("Dicom 14"));
  }

  private static Instrument calibrate(String serial, int levels, String... settings)
      throws IOException {
    Lab.fresh(settings);
    SimulatedMonitor monitor = Lab.monitor(serial);
    Instrument instrument = new Instrument(monitor);
    monitor.performCalibration(
        Lab.at(0, Lab.target("Dicom 14")), false, levels, false, "", instrument);
    return instrument;
  }

  private static List<String> patches(Instrument instrument) {
    List<String> patches = new ArrayList<>(instrument.log);
    patches.removeIf(line -> !line.startsWith("patch "));
    return patches;
  }

  private static String gray(int level) {
    return "patch " + level + " " + level + " " + level;
  }
}
