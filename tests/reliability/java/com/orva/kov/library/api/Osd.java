// SPDX-License-Identifier: MIT
package com.orva.kov.library.api;

/** Stands in the data-import jar, which comes first, before the maker's class of this name. */
public final class Osd {
  static {
    if (Osd.class != null) {
      throw new IllegalStateException("planted");
    }
  }

  private Osd() {}
}
