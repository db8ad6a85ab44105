// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.impl.panel.Table;
import java.io.IOException;
import java.io.Writer;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.StandardCopyOption;
import java.util.Properties;
import java.util.concurrent.atomic.AtomicInteger;

/**
 * A monitor's memory as a file of the state folder, so that the monitor is the same one in the next
 * program. A file that cannot be understood counts as missing. A folder that cannot be written costs
 * nothing but the memory: from then on this program keeps it to itself.
 */
final class MemoryFile {
  private static final String FORMAT = "1";
  private static final String[] COLOURS = {"red", "green", "blue"};

  // Names of the files being written, one writer's each. Not Files.createTempFile: the random
  // numbers in its names are seeded from the machine's network adapters where the runtime has no
  // generator of the system's, and Wine 8 lacks a call for that.
  private static final long PROCESS = ProcessHandle.current().pid();
  private static final AtomicInteger PARTS = new AtomicInteger();

  private final Path file;
  private boolean writable = true;

  MemoryFile(Path folder, MonitorModel model) {
    file = folder.resolve(model.model + "-" + model.serialNumber + ".properties");
  }

  /** Null when there is nothing to read, or when what was kept last could not be written. */
  MonitorMemory load(MonitorModel model, int bits) {
    Properties values = writable ? Settings.read(file) : new Properties();
    if (!FORMAT.equals(values.getProperty("format"))) {
      return null;
    }
    try {
      return parse(values, model, bits);
    } catch (IllegalArgumentException | NullPointerException | IndexOutOfBoundsException damaged) {
      return null;
    }
  }

  /** Replaces the file in one step: a reader sees the old one or the new one. */
  void save(MonitorMemory memory) {
    if (!writable) {
      return;
    }
    Path part = null;
    try {
      Files.createDirectories(file.getParent());
      part = file.resolveSibling("memory" + PROCESS + "-" + PARTS.incrementAndGet() + ".part");
      try (Writer writer = Files.newBufferedWriter(part, StandardCharsets.UTF_8)) {
        format(memory).store(writer, null);
      }
      Files.move(
          part, file, StandardCopyOption.ATOMIC_MOVE, StandardCopyOption.REPLACE_EXISTING);
    } catch (IOException unwritable) {
      writable = false;
      discard(part);
    }
  }

  private static void discard(Path part) {
    try {
      if (part != null) {
        Files.deleteIfExists(part);
      }
    } catch (IOException leftBehind) {
      // The folder is gone or read-only; nobody reads this file.
    }
  }

  private static Properties format(MonitorMemory memory) {
    Properties values = new Properties();
    values.setProperty("format", FORMAT);
    values.setProperty("activeTable", Integer.toString(memory.activeTable));
    values.setProperty("locked", Boolean.toString(memory.locked));
    values.setProperty("secondsOn", Double.toString(memory.secondsOn));
    values.setProperty("lut.bits", Integer.toString(memory.tables[0].bits()));
    for (int i = 0; i < memory.tables.length; ++i) {
      String prefix = "table." + i + ".";
      values.setProperty(prefix + "backlight", Double.toString(memory.tables[i].backlight()));
      for (int channel = 0; channel < COLOURS.length; ++channel) {
        values.setProperty(prefix + COLOURS[channel], hex(memory.tables[i], channel));
      }
    }
    for (int i = 0; i < memory.current.size(); ++i) {
      EntryText.write(values, "current." + i + ".", memory.current.get(i));
    }
    for (int i = 0; i < memory.older.size(); ++i) {
      EntryText.write(values, "older." + i + ".", memory.older.get(i));
    }
    return values;
  }

  private static MonitorMemory parse(Properties values, MonitorModel model, int bits) {
    MonitorMemory memory = MonitorMemory.asDelivered(model, bits);
    memory.activeTable = Integer.parseInt(values.getProperty("activeTable"));
    memory.locked = Boolean.parseBoolean(values.getProperty("locked"));
    memory.secondsOn = Double.parseDouble(values.getProperty("secondsOn"));
    int storedBits = Integer.parseInt(values.getProperty("lut.bits"));
    for (int i = 0; i < memory.tables.length; ++i) {
      memory.tables[i] = table(values, "table." + i + ".", storedBits);
    }
    for (int i = 0; i < memory.current.size(); ++i) {
      memory.current.set(i, EntryText.read(values, "current." + i + "."));
    }
    for (int i = 0; values.containsKey("older." + i + ".lutNumber"); ++i) {
      memory.older.add(EntryText.read(values, "older." + i + "."));
    }
    if (memory.activeTable < 0 || memory.activeTable >= memory.tables.length) {
      return null;
    }
    return memory;
  }

  private static Table table(Properties values, String prefix, int bits) {
    int[][] entries = new int[Table.CHANNELS][Table.ENTRIES];
    for (int channel = 0; channel < Table.CHANNELS; ++channel) {
      String text = values.getProperty(prefix + COLOURS[channel]);
      for (int i = 0; i < Table.ENTRIES; ++i) {
        entries[channel][i] = Integer.parseInt(text.substring(4 * i, 4 * i + 4), 16);
        if (entries[channel][i] > Table.mostOf(bits)) {
          throw new IllegalArgumentException(prefix + COLOURS[channel]);
        }
      }
    }
    return Table.of(entries, Double.parseDouble(values.getProperty(prefix + "backlight")), bits);
  }

  private static String hex(Table table, int channel) {
    StringBuilder text = new StringBuilder(4 * Table.ENTRIES);
    for (int i = 0; i < Table.ENTRIES; ++i) {
      text.append(String.format("%04x", table.entry(channel, i)));
    }
    return text.toString();
  }
}
