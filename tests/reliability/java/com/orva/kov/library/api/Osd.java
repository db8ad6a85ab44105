// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** Stands in the data-import jar, which comes first, before the maker's interface of this name. */
public interface Osd {
  /** Made when the interface is initialised, which is what looking it up does. */
  Object TRAP = Trap.spring();

  boolean isLockSupported();

  boolean isLocked();

  void setLocked(boolean locked);

  /** Throws. */
  final class Trap {
    private Trap() {}

    static Object spring() {
      throw new IllegalStateException("planted");
    }
  }
}
