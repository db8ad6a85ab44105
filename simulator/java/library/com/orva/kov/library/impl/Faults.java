// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.FileTime;
import java.util.ArrayList;
import java.util.List;
import java.util.Properties;

/**
 * Faults that happen on order, from faults.properties. The file is looked at when a search for
 * monitors starts; when it has changed since, all counts begin again and lost monitors come back.
 *
 * <p>Any thread. While no fault is ordered, passing a point costs one volatile read.
 */
final class Faults {
  private static final String FILE = "faults.properties";

  private static volatile List<Fault> active = List.of();
  private static String stamp = "";

  private Faults() {}

  /** Reads the file again if it is another one than last time; tells whether it was. */
  static synchronized boolean reload() {
    Path file = LibraryFolder.ofSettings().resolve(FILE);
    String now = stampOf(file);
    if (now.equals(stamp)) {
      return false;
    }
    stamp = now;
    active = List.copyOf(parse(Settings.read(file)));
    return true;
  }

  /**
   * A point that a fault may be ordered for. True asks the caller to answer null.
   *
   * @param call such as "Monitor.getModel"
   * @param monitor null where no monitor is concerned
   */
  static boolean at(String call, MonitorDevice monitor) {
    boolean answerNull = false;
    for (Fault fault : active) {
      if (fault.isDue(call, monitor)) {
        answerNull |= fault.happen(monitor);
      }
    }
    return answerNull;
  }

  /** Throws what no signature announces, as native code and proxies do. */
  @SuppressWarnings("unchecked")
  static <T extends Throwable> RuntimeException raise(Throwable throwable) throws T {
    throw (T) throwable;
  }

  private static String stampOf(Path file) {
    try {
      FileTime time = Files.getLastModifiedTime(file);
      return file + " " + time + " " + Files.size(file);
    } catch (IOException missing) {
      return "";
    }
  }

  private static List<Fault> parse(Properties values) {
    List<Fault> faults = new ArrayList<>();
    for (int i = 1; values.containsKey("fault." + i + ".call"); ++i) {
      faults.add(new Fault(values, "fault." + i + "."));
    }
    return faults;
  }
}
