// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import com.orva.kov.library.impl.MeasuringHost;
import com.orva.kov.library.impl.panel.Table;
import java.io.IOException;

/**
 * One hardware calibration: measures the native panel, solves the look-up table, loads it and
 * measures again. Leaves the table loaded when it succeeds; putting the old one back is the
 * caller's.
 */
public final class CalibrationRun {
  private static final int WHITE = 255;
  private static final int MEAN_OF = 3;
  private static final int PRIMARIES = 3;
  private static final int VERIFICATION_LEVELS = 18;
  private static final double[] BACKLIGHT_SETTINGS = {0.25, 0.5, 0.75};

  // Warm is a white that rises by less than this in a minute, which is three standard deviations of
  // the difference between two readings.
  private static final double WARM_RISE = 0.0055;
  private static final double WARM_UP_SECONDS = 60.0;

  private final CalibrationTask task;
  private final MeasuringHost host;
  private final Firmware firmware;
  private int done;
  private int planned;

  public CalibrationRun(CalibrationTask task, MeasuringHost host, Firmware firmware) {
    this.task = task;
    this.host = host;
    this.firmware = firmware;
  }

  /** Up to 99 percent; the last one is due when the result is kept. */
  public CalibrationOutcome perform() throws CalibrationCanceled, IOException {
    planned =
        1 + task.warmUpRounds + 2 * MEAN_OF + (task.monochrome ? 0 : PRIMARIES) + task.levels
            + (task.measuresBacklight ? BACKLIGHT_SETTINGS.length : 0) + VERIFICATION_LEVELS;
    host.progress(0);
    int type = host.instrumentType();
    String serialNumber = host.instrumentSerialNumber();
    firmware.load(Table.straight(task.bits, 1.0));
    warmUp();
    Reading black = meanOf(0);
    Reading white = meanOf(WHITE);
    if (!(black.luminance < white.luminance)) {
      throw new IOException("Black measures as bright as white: is the instrument on the screen?");
    }
    Reading[] primaries = task.monochrome ? new Reading[0] : primaries();
    WhitePoint point =
        task.setsWhite
            ? WhitePoint.of(black, primaries, task.target.getColorX(), task.target.getColorY())
            : WhitePoint.nativeOf(white);
    Response response = response(black.luminance, white.luminance);
    BacklightResponse backlight =
        task.measuresBacklight
            ? backlightResponse(white.luminance)
            : BacklightResponse.proportional();
    Solver solver = new Solver(response, point, black.luminance, task.bits);
    firmware.step("Calibration.load");
    firmware.load(solver.solve(task.target, task.curve, backlight));
    double[] reached = verify();
    firmware.step("Calibration.sensor");
    return new CalibrationOutcome(task.target, reached, firmware.sensor(), type, serialNumber);
  }

  /** Waits until white hardly rises any more, though not for ever. */
  private void warmUp() throws CalibrationCanceled, IOException {
    double last = measure(WHITE, WHITE, WHITE).luminance;
    for (int round = 0; round < task.warmUpRounds; ++round) {
      firmware.waitSeconds(WARM_UP_SECONDS);
      double now = measure(WHITE, WHITE, WHITE).luminance;
      if (now < last * (1.0 + WARM_RISE)) {
        done += task.warmUpRounds - round - 1;
        return;
      }
      last = now;
    }
  }

  /** Black and white are what everything else refers to, so they are measured several times. */
  private Reading meanOf(int level) throws CalibrationCanceled, IOException {
    Reading[] readings = new Reading[MEAN_OF];
    for (int i = 0; i < readings.length; ++i) {
      readings[i] = measure(level, level, level);
    }
    return Reading.mean(readings);
  }

  private Reading[] primaries() throws CalibrationCanceled, IOException {
    return new Reading[] {measure(WHITE, 0, 0), measure(0, WHITE, 0), measure(0, 0, WHITE)};
  }

  private Response response(double black, double white) throws CalibrationCanceled, IOException {
    double[] drives = new double[task.levels];
    double[] luminances = new double[task.levels];
    Table straight = Table.straight(task.bits, 1.0);
    for (int i = 0; i < task.levels; ++i) {
      int level = (int) Math.round((double) i * WHITE / (task.levels - 1));
      drives[i] = (double) straight.entry(0, level) / Table.mostOf(task.bits);
      luminances[i] = measure(level, level, level).luminance;
    }
    return new Response(drives, luminances, black, white, task.bits);
  }

  private BacklightResponse backlightResponse(double white)
      throws CalibrationCanceled, IOException {
    int count = BACKLIGHT_SETTINGS.length;
    double[] settings = new double[count + 2];
    double[] brightness = new double[count + 2];
    for (int i = 0; i < count; ++i) {
      settings[i + 1] = BACKLIGHT_SETTINGS[i];
      firmware.load(Table.straight(task.bits, BACKLIGHT_SETTINGS[i]));
      brightness[i + 1] = measure(WHITE, WHITE, WHITE).luminance / white;
      if (!(brightness[i + 1] > brightness[i])) {
        throw new IOException("The backlight does not follow its setting");
      }
    }
    settings[count + 1] = 1.0;
    brightness[count + 1] = 1.0;
    return new BacklightResponse(settings, brightness);
  }

  private double[] verify() throws CalibrationCanceled, IOException {
    double[] luminances = new double[VERIFICATION_LEVELS];
    for (int i = 0; i < luminances.length; ++i) {
      int level = i * WHITE / (luminances.length - 1);
      luminances[i] = measure(level, level, level).luminance;
    }
    return luminances;
  }

  private Reading measure(int red, int green, int blue) throws CalibrationCanceled, IOException {
    firmware.step("Calibration.patch");
    host.showTestPattern(red, green, blue);
    firmware.settle();
    firmware.step("Calibration.measure");
    double[] values = host.measure();
    if (values == null) {
      throw new CalibrationCanceled();
    }
    Reading reading = Reading.of(values);
    host.progress(Math.min(99, 100 * ++done / planned));
    return reading;
  }
}
