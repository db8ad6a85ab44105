// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.MonitorLibrary;
import com.orva.kov.library.api.MonitorLibrary.SearchStatus;
import com.orva.kov.library.impl.KovMonitorLibrary;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.FileTime;
import java.util.ArrayList;
import java.util.Comparator;
import java.util.List;
import java.util.stream.Stream;

/** A workstation with simulated monitors that a test has for itself. */
final class Lab {
  static final String COLOUR = "30210045";
  static final String MONOCHROME = "21500012";
  static final String SHORT_SERIAL = "24000777";
  static final String NO_HISTORY = "19000003";

  private static final String PREFIX = "kov.sim.";
  private static final List<Path> FOLDERS = new ArrayList<>();
  private static long stamp = System.currentTimeMillis();

  private Lab() {}

  /** Monitors as delivered; settings as "key=value". Noise is off unless they say otherwise. */
  static MonitorLibrary fresh(String... settings) {
    for (String name : System.getProperties().stringPropertyNames()) {
      if (name.startsWith(PREFIX)) {
        System.clearProperty(name);
      }
    }
    Path home = folder();
    System.setProperty(PREFIX + "home", home.toString());
    System.setProperty(PREFIX + "noise", "off");
    System.setProperty(PREFIX + "search.ms", "0");
    return change(settings);
  }

  /** Other settings for the same monitors. */
  static MonitorLibrary change(String... settings) {
    for (String setting : settings) {
      int equals = setting.indexOf('=');
      System.setProperty(PREFIX + setting.substring(0, equals), setting.substring(equals + 1));
    }
    return search();
  }

  static MonitorLibrary search() {
    MonitorLibrary library = KovMonitorLibrary.getInstance();
    library.startMonitorSearch();
    Check.same(SearchStatus.FINISHED, library.getSearchStatus(), "search without duration");
    return library;
  }

  static Path home() {
    return Path.of(System.getProperty(PREFIX + "home"));
  }

  static Path folder() {
    try {
      Path folder = Files.createTempDirectory(Path.of(System.getProperty("test.work")), "lab");
      FOLDERS.add(folder);
      return folder;
    } catch (IOException impossible) {
      throw new AssertionError(impossible);
    }
  }

  /** Removes the folders of all tests. */
  static void cleanUp() {
    for (Path folder : FOLDERS) {
      try (Stream<Path> files = Files.walk(folder)) {
        files.sorted(Comparator.reverseOrder()).forEach(file -> file.toFile().delete());
      } catch (IOException alreadyGone) {
        // Nothing to remove.
      }
    }
  }

  /** Orders faults, lines of faults.properties, from the next search on. */
  static MonitorLibrary faults(String... lines) throws IOException {
    Path file = home().resolve("faults.properties");
    Files.write(file, List.of(lines));
    // A new date each time: two files within one tick of the clock are two files.
    stamp += 1000;
    Files.setLastModifiedTime(file, FileTime.fromMillis(stamp));
    return search();
  }

  static SimulatedMonitor monitor(String serialNumber) {
    return KovMonitorLibrary.getInstance().getMonitors().stream()
        .map(monitor -> (SimulatedMonitor) monitor)
        .filter(monitor -> monitor.getSerialNumber().equals(serialNumber))
        .findFirst()
        .orElseThrow(() -> new AssertionError("no monitor " + serialNumber));
  }

  /** 0.5 to 250 cd/m², room light 0.1. */
  static CalibrationTargetValues target(String gammaModelType) {
    CalibrationTargetValues target = new CalibrationTargetValues();
    target.setGammaModelType(gammaModelType);
    target.setMaxLuminance(250.0);
    target.setMinLuminance(0.5);
    target.setUseMinimumLuminance(true);
    target.setAmbientLightValue(0.1);
    return target;
  }

  /** The list for one mode: nulls, then the target. */
  static List<CalibrationTargetValues> at(int mode, CalibrationTargetValues target) {
    List<CalibrationTargetValues> list = new ArrayList<>();
    for (int i = 0; i < mode; ++i) {
      list.add(null);
    }
    list.add(target);
    return list;
  }

  static CalibrationOutcome calibrate(SimulatedMonitor monitor, CalibrationTargetValues target)
      throws IOException {
    return monitor.performCalibration(
        at(0, target), false, 0, false, "tester", new Instrument(monitor));
  }

  /** What the screen emits, luminance in cd/m², x, y, at a gray level of 0 to 255. */
  static double[] emission(SimulatedMonitor monitor, int level) {
    monitor.panel().show(level / 255.0, level / 255.0, level / 255.0);
    return monitor.panel().emission();
  }

  /** Luminances at 18 levels with the light of the room added. */
  static double[] seen(SimulatedMonitor monitor, double ambient) {
    double[] luminances = new double[18];
    for (int i = 0; i < luminances.length; ++i) {
      luminances[i] = emission(monitor, 15 * i)[0] + ambient;
    }
    return luminances;
  }
}
