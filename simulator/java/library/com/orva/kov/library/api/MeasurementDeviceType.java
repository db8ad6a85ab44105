// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** The kind of instrument that a calibration was measured with. */
public class MeasurementDeviceType {
  private static final String NO_INSTRUMENT = "None";
  private static final String PREFIX = "Instrument ";

  private final int id;
  private final String name;

  /** No instrument: id 0, name "None". */
  public MeasurementDeviceType() {
    this(0);
  }

  /** The kind of that code; every code but 0 has a name. */
  public MeasurementDeviceType(int id) {
    this.id = id;
    this.name = id == 0 ? NO_INSTRUMENT : PREFIX + id;
  }

  /** The kind of that name; a name that is not one of this class's own has the code -2. */
  public MeasurementDeviceType(String name) {
    this.id = codeOf(name);
    this.name = name;
  }

  public int getId() {
    return id;
  }

  public String getName() {
    return name;
  }

  private static int codeOf(String name) {
    if (NO_INSTRUMENT.equals(name)) {
      return 0;
    }
    try {
      return name.startsWith(PREFIX) ? Integer.parseInt(name.substring(PREFIX.length())) : -2;
    } catch (NumberFormatException notANumber) {
      return -2;
    }
  }
}
