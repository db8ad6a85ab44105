// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.panel;

/**
 * The contents of one look-up table: 256 entries per channel, each an unsigned number of the table's
 * width, and the backlight that belongs to it (share of full). Immutable.
 */
public final class Table {
  public static final int ENTRIES = 256;
  public static final int CHANNELS = 3;

  private final short[][] channels;
  private final double backlight;
  private final int bits;

  private Table(short[][] channels, double backlight, int bits) {
    this.channels = channels;
    this.backlight = backlight;
    this.bits = bits;
  }

  /** The native tone curve of the panel. */
  public static Table straight(int bits, double backlight) {
    int[][] entries = new int[CHANNELS][ENTRIES];
    int most = mostOf(bits);
    for (int[] channel : entries) {
      for (int i = 0; i < ENTRIES; ++i) {
        channel[i] = (int) Math.round((double) i * most / (ENTRIES - 1));
      }
    }
    return of(entries, backlight, bits);
  }

  public static Table of(int[][] entries, double backlight, int bits) {
    short[][] channels = new short[CHANNELS][ENTRIES];
    for (int channel = 0; channel < CHANNELS; ++channel) {
      for (int i = 0; i < ENTRIES; ++i) {
        channels[channel][i] = (short) entries[channel][i];
      }
    }
    return new Table(channels, backlight, bits);
  }

  public static int mostOf(int bits) {
    return (1 << bits) - 1;
  }

  public int entry(int channel, int index) {
    return Short.toUnsignedInt(channels[channel][index]);
  }

  public short[] channel(int channel) {
    return channels[channel].clone();
  }

  public double backlight() {
    return backlight;
  }

  public int bits() {
    return bits;
  }

  /** The same curve with entries of another width. */
  public Table withBits(int wanted) {
    if (wanted == bits) {
      return this;
    }
    int[][] entries = new int[CHANNELS][ENTRIES];
    for (int channel = 0; channel < CHANNELS; ++channel) {
      for (int i = 0; i < ENTRIES; ++i) {
        entries[channel][i] =
            (int) Math.round((double) entry(channel, i) * mostOf(wanted) / mostOf(bits));
      }
    }
    return of(entries, backlight, wanted);
  }
}
