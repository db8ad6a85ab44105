// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.Monitor;
import com.orva.kov.library.api.MonitorLibrary;
import com.orva.kov.library.impl.KovMonitorLibrary;

/** The shortest program that lists the monitors. */
final class ListMonitors {
  public static void main(String[] arguments) throws InterruptedException {
    MonitorLibrary library = KovMonitorLibrary.getInstance();
    library.startMonitorSearch();
    while (library.getSearchStatus() != MonitorLibrary.SearchStatus.FINISHED) {
      Thread.sleep(1000);
    }
    for (Monitor monitor : library.getMonitors()) {
      System.out.println(monitor.getModel() + " " + monitor.getSerialNumber());
    }
  }
}
