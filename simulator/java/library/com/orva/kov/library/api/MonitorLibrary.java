// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

import java.util.List;

/** Entry to the library: finds the monitors. */
public interface MonitorLibrary {
  /** How far the search for monitors has come. */
  enum SearchStatus {
    /** No search has begun to run. */
    NONE,
    RUNNING,
    FINISHED
  }

  /**
   * The monitor of that model and serial number, or null when the last finished search has not found
   * one.
   */
  Monitor getMonitor(String model, String serialNumber);

  /** What the last finished search has found. */
  List<Monitor> getMonitors();

  SearchStatus getSearchStatus();

  /** Begins a search and returns at once. */
  void startMonitorSearch();
}
