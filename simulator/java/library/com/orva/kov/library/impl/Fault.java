// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl;

import java.lang.reflect.InvocationTargetException;
import java.util.Properties;
import java.util.concurrent.atomic.AtomicInteger;

/** One ordered fault: what happens at the n-th time (from 1) that a point is passed. */
final class Fault {
  private enum Action {
    THROW,
    DELAY,
    LOSE,
    NULL
  }

  private final String call;
  private final String serial;
  private final int nth;
  private final Action action;
  private final String exception;
  private final String message;
  private final long millis;
  private final AtomicInteger passed = new AtomicInteger();

  Fault(Properties values, String prefix) {
    call = values.getProperty(prefix + "call").trim();
    serial = values.getProperty(prefix + "serial", "").trim();
    nth = number(values, prefix + "nth", "1");
    exception = values.getProperty(prefix + "class", "java.io.IOException").trim();
    message = values.getProperty(prefix + "message");
    millis = number(values, prefix + "millis", "0");
    String text = values.getProperty(prefix + "action", "throw").trim();
    try {
      action = Action.valueOf(text.toUpperCase(java.util.Locale.ROOT));
    } catch (IllegalArgumentException unknown) {
      throw new IllegalArgumentException(
          "faults.properties: " + prefix + "action = " + text + " is not throw, delay, lose or null");
    }
  }

  /** Counts the passing; a number of 0 means every time. */
  boolean isDue(String point, MonitorDevice monitor) {
    if (!call.equals(point)
        || (!serial.isEmpty() && (monitor == null || !serial.equals(monitor.model().serialNumber)))) {
      return false;
    }
    return passed.incrementAndGet() == nth || nth == 0;
  }

  /** True: the caller is to answer null. */
  boolean happen(MonitorDevice monitor) {
    switch (action) {
      case DELAY:
        sleep();
        return false;
      case LOSE:
        if (monitor != null) {
          monitor.lose();
        }
        return false;
      case NULL:
        return true;
      default:
        throw Faults.<RuntimeException>raise(makeException());
    }
  }

  private void sleep() {
    try {
      Thread.sleep(millis);
    } catch (InterruptedException interrupted) {
      Thread.currentThread().interrupt();
    }
  }

  /** With a message, or by the constructor without arguments when none was ordered. */
  private Throwable makeException() {
    try {
      Class<?> type = Class.forName(exception);
      Object made =
          message == null
              ? type.getConstructor().newInstance()
              : type.getConstructor(String.class).newInstance(message);
      return (Throwable) made;
    } catch (InvocationTargetException inConstructor) {
      return inConstructor.getCause();
    } catch (ReflectiveOperationException | ClassCastException impossible) {
      return new IllegalArgumentException(
          "faults.properties: cannot make a " + exception, impossible);
    }
  }

  private static int number(Properties values, String key, String otherwise) {
    String text = values.getProperty(key, otherwise).trim();
    try {
      return Integer.parseInt(text);
    } catch (NumberFormatException notANumber) {
      throw new IllegalArgumentException(
          "faults.properties: " + key + " = " + text + " is not a number");
    }
  }
}
