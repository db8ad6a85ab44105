// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.LookUpTable;
import com.orva.kov.library.api.Monitor;
import com.orva.kov.library.api.MonitorLibrary;
import com.orva.kov.library.api.MonitorLibrary.SearchStatus;
import com.orva.kov.library.impl.KovMonitorLibrary;
import com.orva.kov.library.impl.SimulatedMonitor;
import java.nio.file.Files;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;

/** Finding monitors, and what they say of themselves. */
public final class SearchTest {
  public static void main(String[] arguments) {
    // Before anything else has searched in this process.
    MonitorLibrary library = KovMonitorLibrary.getInstance();
    Check.same(SearchStatus.NONE, library.getSearchStatus(), "status before the first search");
    Check.same(0, library.getMonitors().size(), "monitors before the first search");
    Check.same(null, library.getMonitor("OR-C321", Lab.COLOUR), "monitor before the first search");
    Suite.run(SearchTest.class);
  }

  public static void runsThroughItsThreeStates() throws InterruptedException {
    Lab.fresh();
    System.setProperty("kov.sim.search.ms", "400");
    MonitorLibrary library = KovMonitorLibrary.getInstance();
    library.startMonitorSearch();
    long start = System.nanoTime();
    List<SearchStatus> states = new ArrayList<>();
    while (!states.contains(SearchStatus.FINISHED)) {
      SearchStatus status = library.getSearchStatus();
      if (!states.contains(status)) {
        states.add(status);
      }
      Thread.sleep(1);
    }
    double millis = (System.nanoTime() - start) / 1e6;
    Check.same(
        List.of(SearchStatus.NONE, SearchStatus.RUNNING, SearchStatus.FINISHED), states, "states");
    Check.atLeast(399.0, millis, "ms");
  }

  public static void whatWasFoundStaysUntilTheNextSearchIsOver() {
    Lab.fresh();
    System.setProperty("kov.sim.search.ms", "1000000");
    System.setProperty("kov.sim.monitor.OR-M215.connected", "off");
    MonitorLibrary library = KovMonitorLibrary.getInstance();
    library.startMonitorSearch();
    Check.same(SearchStatus.NONE, library.getSearchStatus(), "status");
    Check.same(4, library.getMonitors().size(), "monitors while it searches");
    System.setProperty("kov.sim.search.ms", "0");
    library.startMonitorSearch();
    Check.same(SearchStatus.FINISHED, library.getSearchStatus(), "status");
    Check.same(3, library.getMonitors().size(), "monitors afterwards");
    Check.same(null, library.getMonitor("OR-M215", Lab.MONOCHROME), "unplugged");
  }

  public static void listsTheMonitorsInTheirOrder() {
    List<String> found =
        Lab.fresh().getMonitors().stream()
            .map(monitor -> monitor.getModel() + " " + monitor.getSerialNumber())
            .collect(Collectors.toList());
    Check.same(
        List.of("OR-C321 30210045", "OR-M215 21500012", "OR-C240 24000777", "OR-C190 19000003"),
        found,
        "monitors");
  }

  public static void findsAMonitorByModelAndSerialNumber() {
    MonitorLibrary library = Lab.fresh();
    Monitor monitor = library.getMonitor("OR-C321", Lab.COLOUR);
    Check.that(monitor == library.getMonitors().get(0), "the very monitor of the list");
    Check.same(null, library.getMonitor(Lab.COLOUR, "OR-C321"), "the other way round");
    Check.same(null, library.getMonitor("OR-C321", Lab.MONOCHROME), "another's serial number");
    Check.same(null, library.getMonitor("or-c321", Lab.COLOUR), "in lower case");
    Check.same(null, library.getMonitor(null, null), "null");
  }

  public static void monitorsSayWhatTheyAre() {
    Lab.fresh();
    Monitor colour = Lab.monitor(Lab.COLOUR);
    Check.same("Color", colour.getColorType(), "colour type");
    Check.same("OR-C321", colour.getEdidInformation().getModelName(), "EDID model");
    Check.same(Lab.COLOUR, colour.getEdidInformation().getSerialNumber(), "EDID serial number");
    Check.same(2024, colour.getEdidInformation().getYearOfManufacture(), "year");
    Check.same(1234, colour.getWorkingHours(), "hours");
    Check.same("Monochrome", Lab.monitor(Lab.MONOCHROME).getColorType(), "colour type");
    Check.same(
        "1234", Lab.monitor(Lab.SHORT_SERIAL).getEdidInformation().getSerialNumber(), "short");
  }

  public static void tablesAreListedInIndexOrder() {
    for (Monitor monitor : Lab.fresh().getMonitors()) {
      List<LookUpTable> tables = monitor.getLookUpTables();
      Check.that(tables.size() >= 3, "three tables or more");
      for (int i = 0; i < tables.size(); ++i) {
        Check.same(i, tables.get(i).getIndex(), "index");
        Check.that(!tables.get(i).getName().isEmpty(), "name");
        tables.get(i).activate();
        Check.that(tables.get(i).isActive(), "active");
        Check.same(i, monitor.getActiveLut().getIndex(), "active index");
      }
      Check.that(!tables.get(0).isActive(), "only one is active");
    }
  }

  public static void keysAreLockedWhereThatIsPossible() {
    Lab.fresh();
    Monitor monitor = Lab.monitor(Lab.COLOUR);
    Check.that(monitor.getOsd().isLockSupported(), "supported");
    monitor.getOsd().setLocked(true);
    Check.that(monitor.getOsd().isLocked(), "locked");
    monitor.getOsd().setLocked(false);
    Check.that(!monitor.getOsd().isLocked(), "unlocked");
    Monitor without = Lab.monitor(Lab.SHORT_SERIAL);
    Check.that(!without.getOsd().isLockSupported(), "not supported");
    Check.fails(
        UnsupportedOperationException.class,
        "cannot be locked",
        () -> without.getOsd().setLocked(true));
  }

  public static void anyNumberOfMonitorsCanBeAdded() throws Exception {
    MonitorLibrary library = Lab.fresh("extra.monitors=10000");
    Check.same(10004, library.getMonitors().size(), "monitors");
    SimulatedMonitor last = Lab.monitor("X0010000");
    last.getLookUpTables().get(1).activate();
    Check.that(Lab.calibrate(last, Lab.target("Dicom 14")) != null, "calibrated");
    Check.that(!Files.exists(Lab.home().resolve("state/OR-X100-X0010000.properties")), "no file");
  }

  public static void settingsComeFromTheFileToo() throws Exception {
    Lab.fresh();
    Files.writeString(
        Lab.home().resolve("simulator.properties"),
        "panel.OR-C321.whiteLuminance = 500\nmonitor.OR-C190.connected = off\n");
    Check.same(3, Lab.search().getMonitors().size(), "monitors");
    Check.near(500.0, Lab.emission(Lab.monitor(Lab.COLOUR), 255)[0], 1e-9, "white");
  }

  public static void settingsThatMakeNoSenseAreRefused() {
    String[][] settings = {
      {"search.ms=soon", "search.ms = soon is not an integer from 0"},
      {"search.ms=-1", "search.ms = -1 is not an integer from 0"},
      {"noise=maybe", "noise = maybe is not on or off"},
      {"noise.relative=much", "noise.relative = much is not a number"},
      {"lut.bits=20", "lut.bits = 20 is not an integer from 8 to 16"},
      {"panel.OR-C321.whiteLuminance=0", "the settings make no panel of OR-C321"},
    };
    for (String[] setting : settings) {
      Lab.fresh();
      Check.fails(
          IllegalArgumentException.class,
          setting[1],
          () -> {
            // The numbers of the noise count only while there is noise.
            System.setProperty("kov.sim.noise", "on");
            Lab.change(setting[0]);
          });
    }
  }
}
