// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** Identity of a monitor as its EDID tells it. */
public interface EdidInformation {
  String getModelName();

  /** As stored: not padded. */
  String getSerialNumber();

  int getYearOfManufacture();
}
