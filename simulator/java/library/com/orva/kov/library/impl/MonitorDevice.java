// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.impl.panel.PanelLink;
import com.orva.kov.library.impl.panel.Table;
import java.io.IOException;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/**
 * One simulated monitor as a thing: its memory, its panel and the cable to it. Any thread; the lock
 * is never held while a program is called back.
 */
final class MonitorDevice {
  private final MonitorModel model;
  private final PanelLink panel;

  // Guarded by this.
  private Settings settings;
  private MemoryFile file;
  private MonitorMemory memory;
  private boolean panelIsBuilt;
  private boolean calibrating;
  private List<ExtractedCalibrationData> invented = List.of();

  private volatile boolean lost;

  MonitorDevice(MonitorModel model) {
    this.model = model;
    panel = new PanelLink(model.serialNumber);
  }

  MonitorModel model() {
    return model;
  }

  PanelLink panel() {
    return panel;
  }

  String name() {
    return model.model + " " + model.serialNumber;
  }

  /** Found by a search: takes the settings and what the file holds, unless a calibration runs. */
  synchronized void connect(Settings now) {
    if (calibrating) {
      return;
    }
    if (!now.equals(settings)) {
      Path folder = now.stateFolder();
      boolean elsewhere = settings == null || !now.sameStateFolder(settings);
      if (elsewhere) {
        file = model.keepsState && folder != null ? new MemoryFile(folder, model) : null;
        memory = null;
      }
      settings = now;
      panelIsBuilt = false;
      invented = InventedHistory.of(model, settings);
    }
    int bits = PanelLink.lutBits(settings);
    MonitorMemory kept = file == null ? null : file.load(model, bits);
    if (kept != null) {
      memory = kept;
    } else if (memory == null) {
      memory = MonitorMemory.asDelivered(model, bits);
    }
    memory.fitTo(bits);
    if (model.keepsState) {
      drivePanel();
    }
  }

  /** A point that a fault may be ordered for; true asks for the answer null. */
  boolean pass(String point) {
    boolean answerNull = Faults.at(point, this);
    if (lost) {
      IOException gone =
          new IOException("Error sending data to " + name() + ": the connection is lost");
      throw Faults.<RuntimeException>raise(gone);
    }
    return answerNull;
  }

  void lose() {
    lost = true;
  }

  void reconnect() {
    lost = false;
  }

  boolean isLost() {
    return lost;
  }

  synchronized Settings settings() {
    return settings;
  }

  synchronized int hours() {
    return model.workingHours + (int) (memory.secondsOn / 3600.0);
  }

  synchronized boolean isLocked() {
    return memory.locked;
  }

  synchronized void setLocked(boolean locked) {
    if (memory.locked != locked) {
      memory.locked = locked;
      save();
    }
  }

  synchronized int activeTable() {
    return memory.activeTable;
  }

  synchronized void activate(int table) {
    if (calibrating) {
      throw new IllegalStateException(name() + " is being calibrated");
    }
    if (!panelIsBuilt) {
      drivePanel();
    }
    panel.activate(table);
    if (memory.activeTable != table) {
      memory.activeTable = table;
      save();
    }
  }

  /** Copies, in the order of the library's interface. */
  synchronized List<ExtractedCalibrationData> history() {
    List<ExtractedCalibrationData> entries = new ArrayList<>();
    for (List<ExtractedCalibrationData> part : List.of(memory.current, memory.older, invented)) {
      for (ExtractedCalibrationData entry : part) {
        entries.add(new ExtractedCalibrationData(entry));
      }
    }
    return entries;
  }

  // Calibration. Exactly one of keep and putBack follows begin.

  /** What the monitor remembers now, which putBack brings back. */
  synchronized MonitorMemory begin() {
    if (calibrating) {
      throw new IllegalStateException(name() + " is being calibrated already");
    }
    if (!panelIsBuilt) {
      drivePanel();
    }
    calibrating = true;
    return memory.copy();
  }

  /** Loads a table and shows pictures through it; nothing is saved yet. */
  synchronized void load(int index, Table table) {
    memory.tables[index] = table;
    memory.activeTable = index;
    panel.load(index, table);
    panel.activate(index);
  }

  synchronized void record(ExtractedCalibrationData entry, double seconds) {
    memory.secondsOn += seconds;
    entry.setWorkingHours(hours());
    memory.record(entry, (int) settings.integer("history.limit", 200, 0, 1_000_000));
  }

  synchronized void keep() {
    calibrating = false;
    save();
  }

  synchronized void putBack(MonitorMemory before) {
    memory = before;
    calibrating = false;
    drivePanel();
  }

  /** Brings the panel to what the memory says, building it first where that is due. */
  private void drivePanel() {
    if (!panelIsBuilt) {
      panel.build(model.panel, settings, model.model);
      panelIsBuilt = true;
    }
    for (int i = 0; i < memory.tables.length; ++i) {
      panel.load(i, memory.tables[i]);
    }
    panel.activate(memory.activeTable);
  }

  private void save() {
    if (file != null) {
      file.save(memory);
    }
  }
}
