// SPDX-License-Identifier: MIT
import com.orva.dt.commons.resourceman.ResourceException;
import com.orva.kov.library.api.MonitorLibrary;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.io.IOException;
import java.nio.file.Files;
import java.util.Arrays;

/** Faults on order. */
public final class FaultTest {
  public static void main(String[] arguments) {
    Suite.run(FaultTest.class);
  }

  public static void anExceptionAtTheNthCall() throws IOException {
    Lab.fresh();
    Lab.faults(
        "fault.1.call=Monitor.getConnectionType",
        "fault.1.nth=3",
        "fault.1.class=java.io.IOException",
        "fault.1.message=port 3: Error sending data (timeout)");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.getConnectionType();
    monitor.getConnectionType();
    Check.fails(
        IOException.class, "port 3: Error sending data (timeout)", monitor::getConnectionType);
    Check.same("USB", monitor.getConnectionType(), "once only");
  }

  public static void anyExceptionThatThereIs() throws IOException {
    Lab.fresh();
    Class<?>[] types = {
      ResourceException.class,
      IllegalStateException.class,
      OutOfMemoryError.class,
      UnsatisfiedLinkError.class
    };
    for (Class<?> type : types) {
      Lab.faults(
          "fault.1.call=Monitor.getConnectionType",
          "fault.1.nth=0",
          "fault.1.class=" + type.getName(),
          "fault.1.message=as ordered");
      SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
      Check.fails(type, "as ordered", monitor::getConnectionType);
      Check.fails(type, "as ordered", monitor::getConnectionType);
    }
  }

  public static void anExceptionWithoutAMessage() throws IOException {
    Lab.fresh();
    Lab.faults("fault.1.call=Osd.setLocked", "fault.1.class=java.lang.RuntimeException");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    try {
      monitor.getOsd().setLocked(true);
      throw new AssertionError("no exception");
    } catch (RuntimeException thrown) {
      Check.same(null, thrown.getMessage(), "message");
    }
    Check.that(!monitor.getOsd().isLocked(), "not locked");
  }

  public static void onlyAtTheMonitorThatWasOrdered() throws IOException {
    Lab.fresh();
    Lab.faults(
        "fault.1.call=Monitor.getConnectionType",
        "fault.1.serial=" + Lab.MONOCHROME,
        "fault.1.message=here");
    Check.same("USB", Lab.monitor(Lab.COLOUR).getConnectionType(), "the other monitor");
    Check.fails(IOException.class, "here", Lab.monitor(Lab.MONOCHROME)::getConnectionType);
  }

  public static void aNullAnswer() throws IOException {
    Lab.fresh();
    MonitorLibrary library =
        Lab.faults(
            "fault.1.call=Monitor.extractCalibrationData",
            "fault.1.action=null",
            "fault.2.call=MonitorLibrary.getMonitors",
            "fault.2.action=null",
            "fault.2.nth=2");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Check.same(null, monitor.extractCalibrationData(), "history");
    Check.same(5, monitor.extractCalibrationData().size(), "history again");
    Check.same(null, library.getMonitors(), "monitors");
  }

  public static void anUnknownSearchStatus() throws IOException {
    Lab.fresh();
    Lab.faults(
        "fault.1.call=MonitorLibrary.getSearchStatus", "fault.1.action=null", "fault.1.nth=2");
    MonitorLibrary library = com.orva.kov.library.impl.KovMonitorLibrary.getInstance();
    Check.same(null, library.getSearchStatus(), "status");
  }

  public static void aSlowPatch() throws IOException {
    Lab.fresh();
    Lab.faults(
        "fault.1.call=Calibration.patch",
        "fault.1.nth=5",
        "fault.1.action=delay",
        "fault.1.millis=300");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    long start = System.nanoTime();
    Check.that(Lab.calibrate(monitor, Lab.target("Dicom 14")) != null, "outcome");
    Check.atLeast(300e6, System.nanoTime() - start, "ns");
  }

  public static void aFaultDuringACalibrationLeavesTheMonitorAsItWas() throws IOException {
    String[] points = {"patch", "measure", "load", "write", "sensor", "finish"};
    for (String point : points) {
      Lab.fresh();
      Lab.faults("fault.1.call=Calibration." + point, "fault.1.message=at " + point);
      SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
      double[] before = Lab.seen(monitor, 0.0);
      Check.fails(
          IOException.class,
          "at " + point,
          () -> Lab.calibrate(monitor, Lab.target("Dicom 14")));
      Check.that(Arrays.equals(before, Lab.seen(monitor, 0.0)), "picture after " + point);
      Check.same(5, monitor.extractCalibrationData().size(), "history after " + point);
      Check.that(Lab.calibrate(monitor, Lab.target("Dicom 14")) != null, "again after " + point);
    }
  }

  public static void aLostMonitor() throws IOException {
    Lab.fresh();
    MonitorLibrary library =
        Lab.faults(
            "fault.1.call=Calibration.measure",
            "fault.1.serial=" + Lab.COLOUR,
            "fault.1.nth=40",
            "fault.1.action=lose");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    double[] before = Lab.seen(monitor, 0.0);
    String message = "Error sending data to OR-C321 30210045: the connection is lost";
    Check.fails(
        IOException.class, message, () -> Lab.calibrate(monitor, Lab.target("Dicom 14")));
    Check.fails(IOException.class, message, monitor::getModel);
    Check.fails(IOException.class, message, () -> monitor.getOsd());
    Check.same(4, library.getMonitors().size(), "listed until the next search");
    Lab.search();
    Check.same(3, library.getMonitors().size(), "not found any more");
    Check.same(null, library.getMonitor("OR-C321", Lab.COLOUR), "by name");
    Lab.faults("# plugged in again");
    Check.same(4, library.getMonitors().size(), "found again");
    Check.same("OR-C321", monitor.getModel(), "answers again");
    Check.that(Arrays.equals(before, Lab.seen(monitor, 0.0)), "as it was before");
  }

  public static void countsBeginAgainWhenTheFileChanges() throws IOException {
    Lab.fresh();
    String[] order = {"fault.1.call=Monitor.getConnectionType", "fault.1.message=first"};
    Lab.faults(order);
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Check.fails(IOException.class, "first", monitor::getConnectionType);
    Lab.search();
    Check.same("USB", monitor.getConnectionType(), "the same file counts on");
    Lab.faults(order);
    Check.fails(IOException.class, "first", monitor::getConnectionType);
    Files.delete(Lab.home().resolve("faults.properties"));
    Lab.search();
    Check.same("USB", monitor.getConnectionType(), "no file, no faults");
  }

  public static void anOrderThatMakesNoSenseIsRefused() {
    Lab.fresh();
    String call = "fault.1.call=Monitor.getConnectionType";
    Check.fails(
        IllegalArgumentException.class,
        "fault.1.action = explode",
        () -> Lab.faults(call, "fault.1.action=explode"));
    Check.fails(
        IllegalArgumentException.class,
        "fault.1.nth = often",
        () -> Lab.faults(call, "fault.1.nth=often"));
    Check.fails(
        IllegalArgumentException.class,
        "cannot make a no.such.Thing",
        () -> {
          Lab.faults(call, "fault.1.class=no.such.Thing");
          Lab.monitor(Lab.COLOUR).getConnectionType();
        });
  }
}
