// SPDX-License-Identifier: MIT
import java.util.Objects;

/** What tests assert. */
final class Check {
  interface Action {
    void run() throws Throwable;
  }

  private Check() {}

  static void that(boolean holds, String what) {
    if (!holds) {
      throw new AssertionError(what);
    }
  }

  static void same(Object expected, Object actual, String what) {
    that(Objects.equals(expected, actual), what + ": " + actual + " instead of " + expected);
  }

  static void near(double expected, double actual, double tolerance, String what) {
    that(
        Math.abs(actual - expected) <= tolerance,
        what + ": " + actual + " instead of " + expected + " within " + tolerance);
  }

  static void nearShare(double expected, double actual, double share, String what) {
    near(expected, actual, Math.abs(expected) * share, what);
  }

  static void atMost(double limit, double actual, String what) {
    that(actual <= limit, what + ": " + actual + " is above " + limit);
  }

  static void atLeast(double limit, double actual, String what) {
    that(actual >= limit, what + ": " + actual + " is below " + limit);
  }

  /** The exact class, and a part of the message. */
  static void fails(Class<?> type, String message, Action action) {
    try {
      action.run();
    } catch (Throwable thrown) {
      same(type, thrown.getClass(), "class of " + thrown);
      String text = String.valueOf(thrown.getMessage());
      that(text.contains(message), "message \"" + text + "\" lacks \"" + message + "\"");
      return;
    }
    throw new AssertionError("no " + type.getName());
  }
}
