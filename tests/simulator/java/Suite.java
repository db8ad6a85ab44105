// SPDX-License-Identifier: MIT
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.Arrays;
import java.util.Comparator;

/**
 * Runs the tests of a program: its public static methods without arguments, in the order of their
 * names. Ends the program with 0, or 1 when one failed, or 77 when one could not run here.
 */
final class Suite {
  /** What a test throws that needs something which this machine lacks. */
  static final class Skip extends RuntimeException {
    private static final long serialVersionUID = 1L;

    Skip(String reason) {
      super(reason);
    }
  }

  private Suite() {}

  static void run(Class<?> program) {
    Method[] tests =
        Arrays.stream(program.getDeclaredMethods())
            .filter(method -> Modifier.isPublic(method.getModifiers()))
            .filter(method -> method.getParameterCount() == 0)
            .sorted(Comparator.comparing(Method::getName))
            .toArray(Method[]::new);
    int failed = tests.length == 0 ? 1 : 0;
    int skipped = 0;
    for (Method test : tests) {
      String name = program.getSimpleName() + "." + test.getName();
      try {
        test.invoke(null);
        System.out.println("passed  " + name);
      } catch (InvocationTargetException thrown) {
        if (thrown.getCause() instanceof Skip) {
          System.out.println("skipped " + name + ": " + thrown.getCause().getMessage());
          ++skipped;
        } else {
          System.out.println("FAILED  " + name);
          thrown.getCause().printStackTrace(System.out);
          ++failed;
        }
      } catch (IllegalAccessException impossible) {
        throw new AssertionError(impossible);
      }
    }
    Lab.cleanUp();
    System.exit(failed > 0 ? 1 : skipped > 0 ? 77 : 0);
  }
}
