// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** One of a monitor's look-up tables, that is one of its calibration modes. */
public interface LookUpTable {
  /** Makes this the table that the monitor shows pictures through. */
  void activate();

  /** Number of the table, from 0. */
  int getIndex();

  String getName();

  boolean isActive();
}
