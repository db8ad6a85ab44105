// SPDX-License-Identifier: MIT

/** Lies in the current folder, where no class of the library is to be looked for. */
public final class Planted {
  private Planted() {}
}
