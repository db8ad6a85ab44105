// SPDX-License-Identifier: MIT
import com.orva.kov.library.api.CalibrationResultValues;
import com.orva.kov.library.api.CalibrationTargetValues;
import com.orva.kov.library.api.ExtractedCalibrationData;
import com.orva.kov.library.api.MeasurementDeviceType;
import com.orva.kov.library.api.MonitorLibrary.SearchStatus;
import java.io.IOException;
import java.lang.invoke.MethodType;
import java.lang.reflect.Constructor;
import java.lang.reflect.Executable;
import java.lang.reflect.Field;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Calendar;
import java.util.GregorianCalendar;
import java.util.List;

/** Everything that native hosts look up is there, under its name and descriptor. */
public final class CatalogueTest {
  public static void main(String[] arguments) {
    Suite.run(CatalogueTest.class);
  }

  public static void everyMemberIsThere() throws IOException, ClassNotFoundException {
    Class<?> type = null;
    int members = 0;
    for (String line : Files.readAllLines(Path.of(System.getProperty("test.catalogue")))) {
      if (line.startsWith("#")) {
        continue;
      }
      if (!line.startsWith("  ")) {
        type = Class.forName(line.replace('/', '.'));
        continue;
      }
      String[] words = line.trim().split(" ");
      String descriptor = words[words.length - 1];
      String name = words[words.length - 2];
      Executable member = find(type, name, descriptor);
      Check.that(member != null, type.getName() + "." + name + descriptor);
      Check.that(Modifier.isPublic(member.getModifiers()), name + " is public");
      Check.same(
          words[0].equals("static"), Modifier.isStatic(member.getModifiers()), name + " static");
      Check.same(
          words[0].equals("native"),
          Modifier.isNative(member.getModifiers()) && type.getName().endsWith("JniFunctions"),
          name + " native");
      ++members;
    }
    // 112 that are bound, and 6 that are registered.
    Check.same(118, members, "members");
  }

  public static void searchStatesAreStaticFields() throws NoSuchFieldException {
    for (String name : List.of("FINISHED", "NONE", "RUNNING")) {
      Field field = SearchStatus.class.getField(name);
      Check.that(Modifier.isStatic(field.getModifiers()), name + " is static");
      Check.same(SearchStatus.class, field.getType(), "type of " + name);
    }
    Check.same(
        "com.orva.kov.library.api.MonitorLibrary$SearchStatus",
        SearchStatus.class.getName(),
        "class");
  }

  public static void theDataImportJarHasItsClass() throws Exception {
    Class<?> type = Class.forName("com.orva.lumora.dataimport.DataImport");
    Check.same("1.0.0", type.getMethod("getVersion").invoke(null), "version");
  }

  public static void resultsKeepTheirValues() {
    CalibrationResultValues values = new CalibrationResultValues(250.0, 0.5, 812);
    Check.same(250.0, values.getMaxLuminance(), "maximum");
    Check.same(0.5, values.getMinLuminance(), "minimum");
    Check.same(812, values.getBacklightSensorValue(), "sensor");
    values.setMaxLuminance(1.0);
    values.setMinLuminance(2.0);
    values.setBacklightSensorValue(-1);
    Check.same(1.0, values.getMaxLuminance(), "maximum");
    Check.same(2.0, values.getMinLuminance(), "minimum");
    Check.same(-1, values.getBacklightSensorValue(), "sensor");
  }

  public static void targetsAreEqualWhenEverythingIs() throws Exception {
    CalibrationTargetValues target = new CalibrationTargetValues();
    Check.same("Undefined", target.getGammaModelType(), "type at first");
    CalibrationTargetValues copy = new CalibrationTargetValues(target);
    Check.same(target, copy, "copy");
    Check.same(target.hashCode(), copy.hashCode(), "hash");
    int setters = 0;
    for (Method setter : CalibrationTargetValues.class.getMethods()) {
      if (setter.getName().startsWith("set")) {
        CalibrationTargetValues other = new CalibrationTargetValues(target);
        setter.invoke(other, valueFor(setter.getParameterTypes()[0]));
        Check.that(!target.equals(other), setter.getName() + " makes a difference");
        Check.same(other, new CalibrationTargetValues(other), "copy after " + setter.getName());
        ++setters;
      }
    }
    Check.same(11, setters, "setters");
    Check.that(!target.equals("something else"), "something else");
    Check.that(target.toString().startsWith("Undefined 0.0 to 0.0"), target.toString());
  }

  public static void entriesAreEqualWhenEverythingIs() throws Exception {
    ExtractedCalibrationData entry = new ExtractedCalibrationData();
    int setters = 0;
    for (Method setter : ExtractedCalibrationData.class.getMethods()) {
      if (setter.getName().startsWith("set")) {
        ExtractedCalibrationData other = new ExtractedCalibrationData();
        setter.invoke(other, valueFor(setter.getParameterTypes()[0]));
        Check.that(!entry.equals(other), setter.getName() + " makes a difference");
        Check.same(other, new ExtractedCalibrationData(other), "copy after " + setter.getName());
        Check.same(
            other.hashCode(), new ExtractedCalibrationData(other).hashCode(), "hash of the copy");
        ++setters;
      }
    }
    Check.same(15, setters, "setters");
    Check.same(null, entry.getWorkingHours(), "what is not known");
    Check.same(null, entry.getHorizontalFrequency(), "what is not known");
  }

  public static void aDateBecomesAText() {
    ExtractedCalibrationData entry = new ExtractedCalibrationData();
    entry.setExecuteDate(new GregorianCalendar(2026, Calendar.MARCH, 9, 7, 5, 3).getTime());
    Check.same("2026-03-09 07:05:03", entry.getExecuteDate(), "date");
  }

  public static void instrumentsHaveNamesAndCodes() {
    Check.same("None", new MeasurementDeviceType().getName(), "no instrument");
    Check.same(0, new MeasurementDeviceType().getId(), "no instrument");
    for (int code : new int[] {-2, -1, 7, 1004}) {
      String name = new MeasurementDeviceType(code).getName();
      Check.same(code, new MeasurementDeviceType(name).getId(), "code of " + name);
    }
    Check.same(-2, new MeasurementDeviceType("Lux meter").getId(), "an unknown name");
    Check.same(-2, new MeasurementDeviceType("Instrument X").getId(), "an unknown name");
  }

  private static Executable find(Class<?> type, String name, String descriptor) {
    List<Executable> members = new ArrayList<>();
    members.addAll(Arrays.asList(type.getMethods()));
    members.addAll(Arrays.asList(type.getConstructors()));
    for (Executable member : members) {
      boolean constructor = member instanceof Constructor;
      Class<?> result = constructor ? void.class : ((Method) member).getReturnType();
      String found = MethodType.methodType(result, member.getParameterTypes())
          .toMethodDescriptorString();
      if (name.equals(constructor ? "<init>" : member.getName()) && descriptor.equals(found)) {
        return member;
      }
    }
    return null;
  }

  private static Object valueFor(Class<?> type) {
    if (type == double.class || type == Double.class) {
      return 1.5;
    }
    if (type == int.class || type == Integer.class) {
      return 3;
    }
    if (type == boolean.class) {
      return true;
    }
    if (type == double[].class) {
      return new double[] {1.0};
    }
    if (type == java.util.Date.class) {
      return new java.util.Date(0);
    }
    return type == String.class ? "text" : new CalibrationTargetValues();
  }
}
