// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.panel;

import com.orva.kov.library.impl.LibraryFolder;
import com.orva.kov.library.impl.Settings;

/**
 * The wires to one simulated panel. The panels themselves are native (libkovpanel beside the jar),
 * so that the instrument of a native program looks at the same screen. Any thread.
 */
public final class PanelLink {
  static {
    String name = System.mapLibraryName("kovpanel");
    System.load(LibraryFolder.ofCode().resolve(name).toAbsolutePath().toString());
  }

  private final String serial;

  public PanelLink(String serial) {
    this.serial = serial;
  }

  /** Builds the panel, or builds it anew: straight tables, full backlight, clock and noise at 0. */
  public void build(PanelDesign design, Settings settings, String model) {
    double[] numbers = design.numbers(settings, model);
    int bits = lutBits(settings);
    // Two panels never share their noise.
    long seed = settings.integer("seed", 1, Long.MIN_VALUE, Long.MAX_VALUE) * 31 + serial.hashCode();
    int code = register(serial, numbers, bits, design.isMonochrome(), seed);
    check(code, "the settings make no panel of " + model);
  }

  /** Width of a look-up table's output in bits. */
  public static int lutBits(Settings settings) {
    return (int) settings.integer("lut.bits", 12, 8, 16);
  }

  public void load(int index, Table table) {
    for (int channel = 0; channel < Table.CHANNELS; ++channel) {
      check(setTable(serial, index, channel, table.channel(channel)), "look-up table refused");
    }
    check(setBacklight(serial, index, table.backlight()), "backlight refused");
  }

  public void activate(int index) {
    check(activate(serial, index), "no such look-up table");
  }

  /** Backlight sensor in counts. */
  public int sensor() {
    int[] counts = new int[1];
    check(sensor(serial, counts), "sensor");
    return counts[0];
  }

  /** Draws a patch; components 0 to 1. */
  public void show(double red, double green, double blue) {
    check(show(serial, red, green, blue), "patch refused");
  }

  /** What an instrument reads: luminance, x, y, with noise. */
  public double[] measure() {
    double[] reading = new double[3];
    check(measure(serial, reading), "measurement");
    return reading;
  }

  /** What the screen emits: luminance, x, y, without noise and without taking time. */
  public double[] emission() {
    double[] emission = new double[3];
    check(emission(serial, emission), "emission");
    return emission;
  }

  public void waitSeconds(double seconds) {
    check(waitSeconds(serial, seconds), "wait");
  }

  /** The panel's own clock in seconds. */
  public double clock() {
    double[] seconds = new double[1];
    check(clock(serial, seconds), "clock");
    return seconds[0];
  }

  private void check(int code, String what) {
    switch (code) {
      case 0:
        return;
      case 1:
        throw new IllegalStateException("No panel " + serial + ": " + what);
      case 2:
        throw new IllegalArgumentException("Panel " + serial + ": " + what);
      default:
        throw new OutOfMemoryError("Panel " + serial + ": " + what);
    }
  }

  // Each answers a code of kov_panel.h.
  private static native int register(
      String serial, double[] numbers, int lutBits, boolean monochrome, long seed);

  private static native int setTable(String serial, int table, int channel, short[] entries);

  private static native int setBacklight(String serial, int table, double share);

  private static native int activate(String serial, int table);

  private static native int sensor(String serial, int[] counts);

  private static native int show(String serial, double red, double green, double blue);

  private static native int measure(String serial, double[] reading);

  private static native int emission(String serial, double[] emission);

  private static native int waitSeconds(String serial, double seconds);

  private static native int clock(String serial, double[] seconds);
}
