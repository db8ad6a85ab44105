// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.impl.MeasuringHost;
import com.orva.kov.library.impl.SimulatedMonitor;
import com.orva.kov.library.impl.run.CalibrationOutcome;
import java.io.IOException;
import java.util.Arrays;
import java.util.List;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.atomic.AtomicReference;

/** Calibrations that do not end well leave the monitor as it was. */
public final class CancelTest {
  public static void main(String[] arguments) {
    Suite.run(CancelTest.class);
  }

  public static void aNullMeasurementCancels() throws IOException {
    // At the first one, among the levels, and at the last one of the verification.
    for (int at : new int[] {1, 30, 81}) {
      Lab.fresh();
      SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
      Before before = new Before(monitor);
      Instrument instrument =
          new Instrument(monitor) {
            @Override
            protected double[] reading() {
              return measurements() == at ? null : super.reading();
            }
          };
      Check.same(null, calibrate(monitor, instrument), "outcome");
      Check.same(at, instrument.measurements(), "measurements");
      Check.same(null, instrument.results, "results");
      before.isBack("canceled at " + at);
    }
  }

  public static void anAbortFromAnotherThreadEndsAtTheNextStep() throws Exception {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Before before = new Before(monitor);
    CountDownLatch measuring = new CountDownLatch(1);
    CountDownLatch aborted = new CountDownLatch(1);
    Instrument instrument =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            if (measurements() == 20) {
              measuring.countDown();
              await(aborted);
            }
            return super.reading();
          }
        };
    Thread other =
        new Thread(
            () -> {
              await(measuring);
              monitor.abortCalibration();
              aborted.countDown();
            });
    other.start();
    Check.same(null, calibrate(monitor, instrument), "outcome");
    other.join();
    Check.same(20, instrument.measurements(), "measurements");
    Check.same(null, instrument.results, "results");
    before.isBack("aborted");
  }

  public static void anAbortDoesNotWaitForAPatchToSettle() throws Exception {
    Lab.fresh("patch.delay.ms=600000");
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    AtomicReference<Throwable> thrown = new AtomicReference<>();
    CountDownLatch drawn = new CountDownLatch(1);
    Instrument instrument =
        new Instrument(monitor) {
          @Override
          public void showTestPattern(int red, int green, int blue) {
            super.showTestPattern(red, green, blue);
            drawn.countDown();
          }
        };
    Thread calibration =
        new Thread(
            () -> {
              try {
                Check.same(null, calibrate(monitor, instrument), "outcome");
              } catch (Throwable failed) {
                thrown.set(failed);
              }
            });
    calibration.start();
    await(drawn);
    monitor.abortCalibration();
    calibration.join(20_000);
    Check.that(!calibration.isAlive(), "ended");
    Check.same(null, thrown.get(), "failure");
    Check.same(0, instrument.measurements(), "measurements");
  }

  public static void anAbortBeforehandChangesNothing() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    monitor.abortCalibration();
    Check.that(calibrate(monitor, new Instrument(monitor)) != null, "outcome");
  }

  public static void aCanceledMonitorCanBeCalibratedAgain() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument canceling =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            monitor.abortCalibration();
            return super.reading();
          }
        };
    Check.same(null, calibrate(monitor, canceling), "outcome");
    Check.same(1, canceling.measurements(), "measurements");
    Check.that(calibrate(monitor, new Instrument(monitor)) != null, "second outcome");
  }

  public static void aRefusedResultIsTakenBack() {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Before before = new Before(monitor);
    Instrument refusing =
        new Instrument(monitor) {
          @Override
          public boolean finish(List<CalibrationResultValues> results) {
            return false;
          }
        };
    Check.fails(IOException.class, "not accepted", () -> calibrate(monitor, refusing));
    before.isBack("refused");
  }

  public static void aProgramThatFailsIsReportedAndTheMonitorIsBack() {
    for (int where = 0; where < FailingInstrument.OPERATIONS; ++where) {
      Lab.fresh();
      SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
      Before before = new Before(monitor);
      Instrument failing = new FailingInstrument(monitor, where);
      Check.fails(
          UnsupportedOperationException.class, "window closed", () -> calibrate(monitor, failing));
      before.isBack("failed at " + where);
    }
  }

  public static void theResultIsInTheHistoryWhenItIsHandedOver() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    int older = monitor.extractCalibrationData().size();
    int[] seen = new int[1];
    Instrument looking =
        new Instrument(monitor) {
          @Override
          public boolean finish(List<CalibrationResultValues> results) {
            seen[0] = monitor.extractCalibrationData().size();
            return true;
          }
        };
    calibrate(monitor, looking);
    Check.same(older + 1, seen[0], "entries");
  }

  public static void twoMonitorsCanBeCalibratedAtOnce() throws Exception {
    Lab.fresh();
    SimulatedMonitor first = Lab.monitor(Lab.COLOUR);
    SimulatedMonitor second = Lab.monitor(Lab.MONOCHROME);
    CountDownLatch bothRun = new CountDownLatch(2);
    AtomicReference<Object> result = new AtomicReference<>();
    Thread other =
        new Thread(
            () -> {
              try {
                result.set(calibrate(second, meeting(second, bothRun)));
              } catch (Throwable failed) {
                result.set(failed);
              }
            });
    other.start();
    Check.that(calibrate(first, meeting(first, bothRun)) != null, "first outcome");
    other.join();
    Check.that(result.get() instanceof CalibrationOutcome, "second outcome: " + result.get());
  }

  public static void oneMonitorOnlyOnceAtATime() throws IOException {
    Lab.fresh();
    SimulatedMonitor monitor = Lab.monitor(Lab.COLOUR);
    Instrument greedy =
        new Instrument(monitor) {
          @Override
          protected double[] reading() {
            if (measurements() == 5) {
              Check.fails(
                  IllegalStateException.class,
                  "is being calibrated already",
                  () -> calibrate(monitor, new Instrument(monitor)));
              Check.fails(
                  IllegalStateException.class,
                  "is being calibrated",
                  () -> monitor.getLookUpTables().get(1).activate());
              // Nor does a search disturb it.
              Lab.search();
            }
            return super.reading();
          }
        };
    Check.that(calibrate(monitor, greedy) != null, "outcome");
  }

  /** What a calibration must bring back: picture, active table, history. */
  private static final class Before {
    private final SimulatedMonitor monitor;
    private final double[] picture;
    private final int active;
    private final Object history;

    Before(SimulatedMonitor monitor) {
      this.monitor = monitor;
      monitor.getLookUpTables().get(2).activate();
      picture = Lab.seen(monitor, 0.0);
      active = monitor.getActiveLut().getIndex();
      history = monitor.extractCalibrationData();
    }

    void isBack(String when) {
      Check.that(Arrays.equals(picture, Lab.seen(monitor, 0.0)), "picture, " + when);
      Check.same(active, monitor.getActiveLut().getIndex(), "active table, " + when);
      Check.same(history, monitor.extractCalibrationData(), "history, " + when);
      monitor.getLookUpTables().get(0).activate();
      Check.that(Arrays.equals(picture, Lab.seen(monitor, 0.0)), "calibrated table, " + when);
    }
  }

  private static Instrument meeting(SimulatedMonitor monitor, CountDownLatch bothRun) {
    return new Instrument(monitor) {
      @Override
      protected double[] reading() {
        bothRun.countDown();
        await(bothRun);
        return super.reading();
      }
    };
  }

  private static CalibrationOutcome calibrate(SimulatedMonitor monitor, MeasuringHost host)
      throws IOException {
    return monitor.performCalibration(
        Lab.at(0, Lab.target("Dicom 14")), false, 0, false, "", host);
  }

  private static void await(CountDownLatch latch) {
    try {
      Check.that(latch.await(20, TimeUnit.SECONDS), "the other thread came in time");
    } catch (InterruptedException interrupted) {
      throw new AssertionError(interrupted);
    }
  }
}
