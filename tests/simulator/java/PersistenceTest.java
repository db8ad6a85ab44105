// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.io.File;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** Monitors are the same ones in the next program. */
public final class PersistenceTest {
  public static void main(String[] arguments) {
    if (arguments.length == 1 && arguments[0].equals("describe")) {
      Lab.search();
      System.out.print(describe());
      return;
    }
    Suite.run(PersistenceTest.class);
  }

  public static void theNextProgramFindsThemAsTheyWere() throws Exception {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    CalibrationTargetValues target = Lab.target("Userdefined");
    target.setUserDefinedData(new double[] {0.0, 0.25, 1.0});
    target.setGammaModelTag("tag = with : signs \u00e4\u20ac");
    monitor.performCalibration(
        Lab.at(3, target), false, 0, false, "Prüfer #1", new Instrument(monitor));
    monitor.getOsd().setLocked(true);
    Lab.monitor(Lab.MONOCHROME).getLookUpTables().get(2).activate();
    Check.same(describe(), nextProgram(), "the monitors");
  }

  public static void aSearchReadsWhatAnotherProgramHasLeft() throws Exception {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.getLookUpTables().get(1).activate();
    Path file = stateFile("OR-C321-30210045");
    String text = Files.readString(file);
    Check.that(text.contains("activeTable=1"), "saved");
    Files.writeString(file, text.replace("activeTable=1", "activeTable=4"));
    Check.same(1, monitor.getActiveLut().getIndex(), "before the search");
    Lab.search();
    Check.same(4, monitor.getActiveLut().getIndex(), "after the search");
  }

  public static void aCanceledCalibrationLeavesNoTraceInTheFile() throws Exception {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, Lab.target("Dicom 14"));
    byte[] before = body(stateFile("OR-C321-30210045"));
    Instrument canceling =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            return measurements() == 70 ? null : super.reading();
          }
        };
    monitor.performCalibration(
        Lab.at(0, Lab.target("CIE 1976")), false, 0, false, "", canceling);
    Check.that(
        Arrays.equals(before, body(stateFile("OR-C321-30210045"))), "the file is the same");
  }

  public static void nothingElseIsLeftInTheFolder() throws Exception {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    for (int i = 0; i < 5; ++i) {
      monitor.getLookUpTables().get(1 + i % 3).activate();
    }
    try (Stream<Path> files = Files.list(Lab.home().resolve("state"))) {
      Check.same(
          List.of("OR-C321-30210045.properties"),
          files.map(file -> file.getFileName().toString()).collect(Collectors.toList()),
          "files");
    }
  }

  public static void aDamagedFileMeansAsDelivered() throws Exception {
    String[] damages = {
      "", "rubbish", "format=1\n", "format=2\nactiveTable=1\n", "format=1\nactiveTable=\\u12"
    };
    for (String damage : damages) {
      Lab.fresh();
      String delivered = describe();
      Lab.monitor(Lab.COLOUR).getLookUpTables().get(1).activate();
      Files.writeString(stateFile("OR-C321-30210045"), damage);
      Check.same(delivered, nextProgram(), "after \"" + damage + "\"");
    }
  }

  public static void aTableBeyondItsWidthIsDamage() throws Exception {
    Lab.fresh();
    String delivered = describe();
    Lab.monitor(Lab.COLOUR).getLookUpTables().get(1).activate();
    Path file = stateFile("OR-C321-30210045");
    String text = Files.readString(file);
    Files.writeString(file, text.replace("table.2.red=0000", "table.2.red=ffff"));
    Check.that(!text.equals(Files.readString(file)), "damaged");
    Check.same(delivered, nextProgram(), "the monitors");
  }

  /** A file where the folder should be cannot be written into, whoever the user is. */
  public static void aFolderThatCannotBeWrittenCostsOnlyTheMemory() throws Exception {
    Lab.fresh();
    Path blocked = Lab.home().resolve("blocked");
    Files.writeString(blocked, "not a folder");
    Lab.change("state=blocked");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, Lab.target("CIE 1976"));
    monitor.getOsd().setLocked(true);
    Lab.search();
    Check.that(monitor.getOsd().isLocked(), "locked");
    Check.same(
        "CIE 1976",
        monitor.extractCalibrationData().get(0).getCalibrationTargetValues().getGammaModelType(),
        "history");
    Check.same("not a folder", Files.readString(blocked), "the file in the way");
  }

  public static void stateNoneWritesNothing() throws Exception {
    Lab.fresh("state=none");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.getLookUpTables().get(1).activate();
    Lab.search();
    Check.same(1, monitor.getActiveLut().getIndex(), "active table");
    try (Stream<Path> files = Files.list(Lab.home())) {
      Check.same(0L, files.count(), "files");
    }
  }

  public static void tablesOfAnotherWidthAreConverted() throws Exception {
    Lab.fresh("lut.bits=16");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Lab.calibrate(monitor, Lab.target("Dicom 14"));
    double[] fine = Lab.seen(monitor, 0.0);
    Lab.change("lut.bits=10");
    double[] coarse = Lab.seen(monitor, 0.0);
    Check.that(!Arrays.equals(fine, coarse), "another width");
    for (int i = 0; i < fine.length; ++i) {
      Check.nearShare(fine[i], coarse[i], 0.03, "level " + 15 * i);
    }
  }

  public static void workingHoursGoOn() throws Exception {
    Lab.fresh("panel.secondsPerMeasurement=50");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Check.same(1234, monitor.getWorkingHours(), "as delivered");
    Lab.calibrate(monitor, Lab.target("Dicom 14"));
    Check.same(1235, monitor.getWorkingHours(), "after 81 measurements of 50 s");
    Check.that(nextProgram().contains("1235 h"), "hours in the next program");
  }

  /** Everything about all monitors that outlives a program. */
  private static String describe() {
    StringBuilder text = new StringBuilder();
    for (String serial :
        List.of(Lab.COLOUR, Lab.MONOCHROME, Lab.SHORT_SERIAL, Lab.NO_HISTORY)) {
      SimulatedMonitor monitor = Lab.monitor(serial);
      text.append(monitor.getModel()).append(' ').append(monitor.getWorkingHours()).append(" h, ");
      text.append(monitor.getActiveLut().getIndex()).append(monitor.getOsd().isLocked());
      text.append(Arrays.toString(Lab.seen(monitor, 0.0))).append('\n');
      for (ExtractedCalibrationData entry : monitor.extractCalibrationData()) {
        text.append(describe(entry)).append('\n');
      }
    }
    return text.toString();
  }

  private static String describe(ExtractedCalibrationData entry) {
    CalibrationTargetValues target = entry.getCalibrationTargetValues();
    List<Object> parts = new ArrayList<>();
    parts.add(entry);
    parts.add(entry.getPerformer());
    parts.add(entry.getBacklightSensorValue());
    parts.add(entry.getMeasurementDeviceType().getId());
    parts.add(entry.getMeasurementDeviceSerialNumber());
    parts.add(entry.getWorkingHours());
    parts.add(entry.getHorizontalFrequency());
    parts.add(target.getGammaModelTag());
    parts.add(target.isUseMinimumLuminance());
    parts.add(Arrays.toString(target.getUserDefinedData()));
    return parts.toString();
  }

  /** What a program of its own says about the same monitors. */
  private static String nextProgram() throws Exception {
    List<String> command = new ArrayList<>();
    command.add(System.getProperty("test.java"));
    for (String name : System.getProperties().stringPropertyNames()) {
      if (name.startsWith("kov.sim.")) {
        command.add("-D" + name + "=" + System.getProperty(name));
      }
    }
    command.addAll(List.of("-Dfile.encoding=UTF-8", "-cp", System.getProperty("java.class.path")));
    command.addAll(List.of("PersistenceTest", "describe"));
    File output = Lab.folder().resolve("output").toFile();
    Process process =
        new ProcessBuilder(command)
            .redirectOutput(output)
            .redirectError(ProcessBuilder.Redirect.INHERIT)
            .start();
    Check.same(0, process.waitFor(), "the next program");
    return Files.readString(output.toPath(), StandardCharsets.UTF_8);
  }

  private static Path stateFile(String monitor) {
    return Lab.home().resolve("state").resolve(monitor + ".properties");
  }

  /** Without the first line, which is a date. */
  private static byte[] body(Path file) throws IOException {
    return Files.readAllLines(file).stream()
        .filter(line -> !line.startsWith("#"))
        .sorted()
        .collect(Collectors.joining("\n"))
        .getBytes(StandardCharsets.UTF_8);
  }
}
