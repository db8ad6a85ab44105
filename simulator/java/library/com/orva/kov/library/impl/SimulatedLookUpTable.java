// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.LookUpTable;

/** One look-up table of a simulated device. */
final class SimulatedLookUpTable implements LookUpTable {
  private final MonitorDevice device;
  private final int index;

  SimulatedLookUpTable(MonitorDevice device, int index) {
    this.device = device;
    this.index = index;
  }

  @Override
  public void activate() {
    device.pass("LookUpTable.activate");
    device.activate(index);
  }

  @Override
  public int getIndex() {
    device.pass("LookUpTable.getIndex");
    return index;
  }

  @Override
  public String getName() {
    return device.pass("LookUpTable.getName") ? null : device.model().tables.get(index);
  }

  @Override
  public boolean isActive() {
    device.pass("LookUpTable.isActive");
    return device.activeTable() == index;
  }
}
