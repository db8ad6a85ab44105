// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.EdidInformation;

/** The EDID of a simulated device. */
final class SimulatedEdid implements EdidInformation {
  private final MonitorDevice device;

  SimulatedEdid(MonitorDevice device) {
    this.device = device;
  }

  @Override
  public String getModelName() {
    return device.pass("EdidInformation.getModelName") ? null : device.model().model;
  }

  @Override
  public String getSerialNumber() {
    return device.pass("EdidInformation.getSerialNumber")
        ? null
        : device.model().edidSerialNumber;
  }

  @Override
  public int getYearOfManufacture() {
    device.pass("EdidInformation.getYearOfManufacture");
    return device.model().yearOfManufacture;
  }
}
