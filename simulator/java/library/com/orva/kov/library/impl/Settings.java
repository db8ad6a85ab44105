// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import java.io.IOException;
import java.io.Reader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Objects;
import java.util.Properties;

/**
 * The settings of the simulation: simulator.properties (UTF-8), over which system properties that
 * begin with "kov.sim." go. Immutable. A missing file means the defaults.
 */
public final class Settings {
  private static final String FILE = "simulator.properties";
  private static final String OVERRIDE = "kov.sim.";

  private final Path folder;
  private final Properties values;

  private Settings(Path folder, Properties values) {
    this.folder = folder;
    this.values = values;
  }

  public static Settings load() {
    Path folder = LibraryFolder.ofSettings();
    Properties values = read(folder.resolve(FILE));
    Properties system = System.getProperties();
    for (String name : system.stringPropertyNames()) {
      if (name.startsWith(OVERRIDE)) {
        values.setProperty(name.substring(OVERRIDE.length()), system.getProperty(name));
      }
    }
    return new Settings(folder, values);
  }

  /** The properties of a file; none when it is missing or cannot be read. */
  static Properties read(Path file) {
    Properties values = new Properties();
    if (Files.isRegularFile(file)) {
      try (Reader reader = Files.newBufferedReader(file, StandardCharsets.UTF_8)) {
        values.load(reader);
      } catch (IOException | IllegalArgumentException unreadable) {
        values.clear();
      }
    }
    return values;
  }

  /** Where the monitors' memories are kept; null for nowhere ("state = none"). */
  Path stateFolder() {
    String state = text("state", "state");
    return state.equals("none") ? null : folder.resolve(state);
  }

  boolean sameStateFolder(Settings other) {
    return Objects.equals(stateFolder(), other.stateFolder());
  }

  public String text(String key, String otherwise) {
    return values.getProperty(key, otherwise).trim();
  }

  public boolean flag(String key, boolean otherwise) {
    String text = text(key, otherwise ? "on" : "off");
    if (text.equals("on") || text.equals("true")) {
      return true;
    }
    if (text.equals("off") || text.equals("false")) {
      return false;
    }
    throw wrong(key, text, "on or off");
  }

  public double number(String key, double otherwise) {
    String text = text(key, Double.toString(otherwise));
    try {
      return Double.parseDouble(text);
    } catch (NumberFormatException notANumber) {
      throw wrong(key, text, "a number");
    }
  }

  public long integer(String key, long otherwise, long least, long most) {
    String text = text(key, Long.toString(otherwise));
    try {
      long value = Long.parseLong(text);
      if (value >= least && value <= most) {
        return value;
      }
    } catch (NumberFormatException notANumber) {
      // Said below.
    }
    throw wrong(key, text, "an integer from " + least + " to " + most);
  }

  private static IllegalArgumentException wrong(String key, String text, String wanted) {
    return new IllegalArgumentException(FILE + ": " + key + " = " + text + " is not " + wanted);
  }

  @Override
  public boolean equals(Object object) {
    return object instanceof Settings
        && folder.equals(((Settings) object).folder)
        && values.equals(((Settings) object).values);
  }

  @Override
  public int hashCode() {
    return values.hashCode();
  }
}
