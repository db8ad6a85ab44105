// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.Monitor;
import com.orva.kov.library.api.MonitorLibrary;
import java.util.ArrayList;
import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/**
 * The monitor library: one per process. A search takes a time that the settings give; it runs on no
 * thread, its state follows from the clock.
 */
public final class KovMonitorLibrary implements MonitorLibrary {
  /** What part of a search goes by before it is said to run. */
  private static final double WAITING_SHARE = 0.1;

  /** Made on first use, so that looking the class up costs nothing. */
  private static final class Holder {
    static final KovMonitorLibrary INSTANCE = new KovMonitorLibrary();
  }

  private final Map<String, SimulatedMonitor> known = new HashMap<>();
  private Map<String, SimulatedMonitor> found = Map.of();
  private Settings settings = Settings.load();
  private boolean searching;
  private boolean searched;
  private long searchStart;
  private long searchNanos;

  private KovMonitorLibrary() {}

  public static MonitorLibrary getInstance() {
    return Holder.INSTANCE;
  }

  @Override
  public Monitor getMonitor(String model, String serialNumber) {
    if (Faults.at("MonitorLibrary.getMonitor", null)) {
      return null;
    }
    synchronized (this) {
      finishIfDue();
      return found.get(key(model, serialNumber));
    }
  }

  @Override
  public List<Monitor> getMonitors() {
    if (Faults.at("MonitorLibrary.getMonitors", null)) {
      return null;
    }
    synchronized (this) {
      finishIfDue();
      return new ArrayList<>(found.values());
    }
  }

  @Override
  public SearchStatus getSearchStatus() {
    if (Faults.at("MonitorLibrary.getSearchStatus", null)) {
      return null;
    }
    synchronized (this) {
      finishIfDue();
      if (searching) {
        boolean runs = System.nanoTime() - searchStart >= WAITING_SHARE * searchNanos;
        return runs ? SearchStatus.RUNNING : SearchStatus.NONE;
      }
      return searched ? SearchStatus.FINISHED : SearchStatus.NONE;
    }
  }

  /** Reads the settings and the ordered faults again; a search that runs begins anew. */
  @Override
  public void startMonitorSearch() {
    boolean otherFaults = Faults.reload();
    Faults.at("MonitorLibrary.startMonitorSearch", null);
    synchronized (this) {
      settings = Settings.load();
      if (otherFaults) {
        known.values().forEach(monitor -> monitor.device().reconnect());
      }
      searchNanos = settings.integer("search.ms", 300, 0, 1_000_000_000) * 1_000_000;
      searchStart = System.nanoTime();
      searching = true;
    }
  }

  private void finishIfDue() {
    if (!searching || System.nanoTime() - searchStart < searchNanos) {
      return;
    }
    searching = false;
    Map<String, SimulatedMonitor> now = new LinkedHashMap<>();
    for (MonitorModel model : MonitorModels.all(settings)) {
      String key = key(model.model, model.serialNumber);
      SimulatedMonitor monitor =
          known.computeIfAbsent(key, absent -> new SimulatedMonitor(model));
      if (!monitor.device().isLost()) {
        monitor.device().connect(settings);
        now.put(key, monitor);
      }
    }
    found = now;
    searched = true;
  }

  private static String key(String model, String serialNumber) {
    return model + "\n" + serialNumber;
  }
}
