// SPDX-License-Identifier: MIT
import java.util.ArrayList;
import java.util.List;

/** A Java program that uses a native library that uses libl5kov. Ends with 0 when all held. */
public final class JavaHost {
  private JavaHost() {}

  /** Search, query and calibration on the calling thread, all inside this one call. */
  private static native String useHere(boolean calibrate);

  /** The same on a thread that the native library starts and ends. */
  private static native String useOnOwnThread(boolean calibrate);

  /** Finds the monitor and keeps its handle; then asks the kept handle, from another call. */
  private static native void keep();

  private static native String askKept();

  private static native String release();

  /** What use ended with when it failed: "class or kind: text". */
  private static native String failure();

  private static final String FOUND = "OR-C321 30210045";

  public static void main(String[] arguments) throws Exception {
    System.load(arguments[0]);
    switch (arguments[1]) {
      case "oneCall":
        expect(FOUND + " 0", useHere(true));
        break;
      case "ownThreads":
        for (int i = 0; i < 20; i++) expect(FOUND, useOnOwnThread(false));
        expect(FOUND + " 0", useOnOwnThread(true));
        break;
      case "javaThreads":
        javaThreads();
        break;
      case "keptHandle":
        keptHandle();
        break;
      case "released":
        expect(FOUND, useHere(false));
        expect("released", release());
        expect("logic_error: Java is no longer available on this thread: DeleteJavaVM() was called",
            failure());
        expect(FOUND, useOnOwnThread(false));
        break;
      case "again":
        // What must not be done: the thread's bindings came from a call that has returned.
        for (int i = 0; i < 3; i++) useHere(true);
        break;
      case "fails":
        expect(arguments[2], failure());
        break;
      default:
        throw new IllegalArgumentException(arguments[1]);
    }
    System.gc();
    System.out.println("held");
  }

  // Threads that Java has attached and takes away again, each with bindings of its own.
  private static void javaThreads() throws Exception {
    List<String> wrong = new ArrayList<>();
    for (int round = 0; round < 10; round++) {
      List<Thread> threads = new ArrayList<>();
      for (int i = 0; i < 8; i++) {
        Thread thread =
            new Thread(
                () -> {
                  String said = useHere(false);
                  synchronized (wrong) {
                    if (!said.equals(FOUND)) wrong.add(said);
                  }
                });
        thread.start();
        threads.add(thread);
      }
      for (Thread thread : threads) thread.join();
      System.gc();
    }
    expect("[]", wrong.toString());
  }

  // A handle made in one native call and asked from others, on Java's threads of every age.
  private static void keptHandle() throws Exception {
    Thread maker = new Thread(JavaHost::keep);
    maker.start();
    maker.join();
    System.gc();
    for (int i = 0; i < 20; i++) {
      String[] said = new String[1];
      Thread asker = new Thread(() -> said[0] = askKept());
      asker.start();
      asker.join();
      expect(FOUND, said[0]);
    }
  }

  private static void expect(String wanted, String given) {
    if (!wanted.equals(given)) throw new AssertionError(given + " instead of " + wanted);
  }
}
