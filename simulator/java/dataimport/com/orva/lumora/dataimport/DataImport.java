// SPDX-License-Identifier: MIT
package com.orva.lumora.dataimport;

/** The data-import plug-in. The simulated monitors import nothing, so it only tells its version. */
public final class DataImport {
  private static final String VERSION = "1.0.0";

  private DataImport() {}

  public static String getVersion() {
    return VERSION;
  }
}
