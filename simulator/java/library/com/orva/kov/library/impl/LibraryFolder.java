// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import java.net.URISyntaxException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;

/** Where the library lies, and where its settings and the monitors' memories are kept. */
public final class LibraryFolder {
  private LibraryFolder() {}

  /** The folder of the jar; the class folder where the classes are not in a jar. */
  public static Path ofCode() {
    try {
      Path code =
          Paths.get(
              LibraryFolder.class.getProtectionDomain().getCodeSource().getLocation().toURI());
      return Files.isDirectory(code) ? code : code.toAbsolutePath().getParent();
    } catch (URISyntaxException impossible) {
      throw new IllegalStateException(impossible);
    }
  }

  /**
   * The folder of simulator.properties, faults.properties and the state folder: the system property
   * kov.sim.home, else the environment variable KOV_SIM_HOME, else the folder of the jar.
   */
  public static Path ofSettings() {
    String chosen = System.getProperty("kov.sim.home", System.getenv("KOV_SIM_HOME"));
    return chosen == null || chosen.isEmpty() ? ofCode() : Paths.get(chosen);
  }
}
