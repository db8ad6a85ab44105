// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** The keys of a monitor's on-screen menu. */
public interface Osd {
  boolean isLockSupported();

  boolean isLocked();

  /** Throws {@link UnsupportedOperationException} where locking is not supported. */
  void setLocked(boolean locked);
}
