// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;

/** The calibration history: its order and what an entry says. */
public final class HistoryTest {
  public static void main(String[] arguments) {
    Suite.run(HistoryTest.class);
  }

  public static void asDeliveredThereIsOneEntryPerTable() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    List<ExtractedCalibrationData> history = monitor.extractCalibrationData();
    Check.same(monitor.getLookUpTables().size(), history.size(), "entries");
    for (int i = 0; i < history.size(); ++i) {
      ExtractedCalibrationData entry = history.get(i);
      Check.same(i, entry.getLutNumber(), "table");
      Check.same("factory/" + i, entry.getCalibrationTargetValues().getGammaModelTag(), "tag");
      Check.same("Original", entry.getCalibrationTargetValues().getGammaModelType(), "type");
      Check.same("None", entry.getMeasurementDeviceType().getName(), "instrument");
      Check.same(null, entry.getBacklightSensorValue(), "sensor");
      Check.same("Prüffeld", entry.getPerformer(), "performer");
    }
  }

  public static void theEntriesInForceComeFirstAndTheOthersNewestFirst() throws IOException {
    Lab.fresh("date=2026-01-01 10:00:00");
    SimulatedMonitor monitor = Lab.monitor(Lab.SHORT_SERIAL);
    calibrate(monitor, 1, "a");
    calibrate(monitor, 0, "b");
    calibrate(monitor, 1, "c");
    // In force by table, then what "c" replaced, what "b" replaced, what "a" replaced.
    Check.same(
        List.of("0 b", "1 c", "2 factory/2", "1 a", "0 factory/0", "1 factory/1"),
        tags(monitor),
        "order");
  }

  public static void anEntrySaysHowItCameAbout() throws IOException {
    Lab.fresh("date=2026-01-01 10:00:00");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.performCalibration(
        Lab.at(1, Lab.target("CIE 1976")), false, 0, false, "Ärztin", new Instrument(monitor));
    ExtractedCalibrationData entry = monitor.extractCalibrationData().get(1);
    Check.same("Ärztin", entry.getPerformer(), "performer");
    Check.same("2026-01-01 10:00:00", entry.getExecuteDate(), "date");
    Check.same(7, entry.getMeasurementDeviceType().getId(), "kind of instrument");
    Check.same("Instrument 7", entry.getMeasurementDeviceType().getName(), "its name");
    Check.same("SN-7", entry.getMeasurementDeviceSerialNumber(), "its serial number");
    Check.same(753, entry.getBacklightSensorValue(), "sensor");
    Check.same(monitor.getWorkingHours(), entry.getWorkingHours(), "hours");
    Check.same(94.77, entry.getHorizontalFrequency(), "horizontal frequency");
    Check.same(60, entry.getVerticalFrequency(), "vertical frequency");
    Check.same(2048, entry.getHorizontalResolution(), "horizontal resolution");
    Check.same(1536, entry.getVerticalResolution(), "vertical resolution");
    Check.same(8, entry.getColorDepth(), "colour depth");
    Check.that(!entry.getComputerName().isEmpty(), "computer");
    Check.same(Lab.target("CIE 1976"), entry.getCalibrationTargetValues(), "target");
  }

  public static void aMonitorWithoutHistoryStaysWithoutOne() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.NO_HISTORY);
    Check.same(0, monitor.extractCalibrationData().size(), "entries");
    Check.fails(
        IndexOutOfBoundsException.class, "0", () -> monitor.extractCalibrationData().get(0));
    Lab.calibrate(monitor, Lab.target("Dicom 14"));
    Check.same(0, monitor.extractCalibrationData().size(), "entries after a calibration");
  }

  public static void whatAProgramDoesToAnEntryStaysItsOwnAffair() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    ExtractedCalibrationData entry = monitor.extractCalibrationData().get(0);
    entry.setPerformer("somebody");
    entry.getCalibrationTargetValues().setGammaModelTag("mine");
    monitor.extractCalibrationData().clear();
    Check.same("0 factory/0", tags(monitor).get(0), "first entry");
    Check.same("Prüffeld", monitor.extractCalibrationData().get(0).getPerformer(), "performer");
  }

  public static void theMemoryIsLimited() throws IOException {
    Lab.fresh("history.limit=2");
    SimulatedMonitor monitor = Lab.monitor(Lab.SHORT_SERIAL);
    for (String tag : List.of("a", "b", "c")) {
      calibrate(monitor, 0, tag);
    }
    Check.same(
        List.of("0 c", "1 factory/1", "2 factory/2", "0 b", "0 a"), tags(monitor), "order");
  }

  public static void anyNumberOfEntriesCanBeInvented() {
    Lab.fresh("extra.history=10000");
    List<ExtractedCalibrationData> history = Lab.monitor(Lab.COLOUR).extractCalibrationData();
    Check.same(10005, history.size(), "entries");
    Check.same("factory/0", history.get(0).getCalibrationTargetValues().getGammaModelTag(), "tag");
    Check.same(0, Lab.monitor(Lab.NO_HISTORY).extractCalibrationData().size(), "without history");
  }

  private static void calibrate(SimulatedMonitor monitor, int mode, String tag)
      throws IOException {
    CalibrationTargetValues target = Lab.target("Dicom 14");
    target.setGammaModelTag(tag);
    monitor.performCalibration(
        Lab.at(mode, target), false, 18, false, "", new Instrument(monitor));
  }

  private static List<String> tags(SimulatedMonitor monitor) {
    List<String> tags = new ArrayList<>();
    for (ExtractedCalibrationData entry : monitor.extractCalibrationData()) {
      tags.add(
          entry.getLutNumber() + " " + entry.getCalibrationTargetValues().getGammaModelTag());
    }
    return tags;
  }
}
