// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.Osd;

/** The keys of a simulated device. */
final class SimulatedOsd implements Osd {
  private final MonitorDevice device;

  SimulatedOsd(MonitorDevice device) {
    this.device = device;
  }

  @Override
  public boolean isLockSupported() {
    device.pass("Osd.isLockSupported");
    return device.model().lockSupported;
  }

  @Override
  public boolean isLocked() {
    device.pass("Osd.isLocked");
    return device.isLocked();
  }

  @Override
  public void setLocked(boolean locked) {
    device.pass("Osd.setLocked");
    if (!device.model().lockSupported) {
      throw new UnsupportedOperationException(
          "The keys of " + device.name() + " cannot be locked");
    }
    device.setLocked(locked);
  }
}
