// SPDX-License-Identifier: MIT
#include <jni.h>

#include <array>
#include <cstddef>

#include "kov_panel.h"

// The firmware's road to the panels: the natives of com.orva.kov.library.impl.panel.PanelLink. They
// answer the codes of kov_panel.h; the Java side turns them into exceptions. Where a JNI function
// has failed, a Java exception is pending and the answer is not looked at.

namespace {

/// A Java text as the C functions take it, released at the end of the scope.
class Text {
 public:
  Text(JNIEnv* environment, jstring string) : env(environment), text(string) {
    chars = string == nullptr ? nullptr : env->GetStringUTFChars(string, nullptr);
  }
  ~Text() {
    if (chars != nullptr) {
      env->ReleaseStringUTFChars(text, chars);
    }
  }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  const char* get() const { return chars; }

 private:
  JNIEnv* env;
  jstring text;
  const char* chars;
};

constexpr jsize kNumbers = 23;

/// The parameters in the order of PanelSettings.numbers(), which is the order of the record.
KovPanelParameters unpack(const std::array<jdouble, kNumbers>& n) {
  KovPanelParameters p{};
  double* const targets[kNumbers] = {&p.blackLuminance,
                                     &p.whiteLuminance,
                                     &p.gamma25,
                                     &p.gamma50,
                                     &p.gamma75,
                                     &p.redX,
                                     &p.redY,
                                     &p.greenX,
                                     &p.greenY,
                                     &p.blueX,
                                     &p.blueY,
                                     &p.whiteX,
                                     &p.whiteY,
                                     &p.blackX,
                                     &p.blackY,
                                     &p.coldDeficit,
                                     &p.warmUpSeconds,
                                     &p.startSeconds,
                                     &p.secondsPerPatch,
                                     &p.secondsPerMeasurement,
                                     &p.noiseRelative,
                                     &p.noiseAbsolute,
                                     &p.sensorFullScale};
  for (std::size_t i = 0; i < n.size(); ++i) {
    *targets[i] = n[i];
  }
  return p;
}

jint storeReading(JNIEnv* env, jdoubleArray out, int (*read)(const char*, double*),
                  const char* serial) {
  std::array<jdouble, 3> values{};
  const int code = read(serial, values.data());
  if (code == KOVPANEL_OK) {
    env->SetDoubleArrayRegion(out, 0, 3, values.data());
  }
  return code;
}

}  // namespace

extern "C" {

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_register(
    JNIEnv* env, jclass, jstring serial, jdoubleArray numbers, jint lutBits, jboolean monochrome,
    jlong seed) {
  if (numbers == nullptr || env->GetArrayLength(numbers) != kNumbers) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  std::array<jdouble, kNumbers> values{};
  env->GetDoubleArrayRegion(numbers, 0, kNumbers, values.data());
  KovPanelParameters parameters = unpack(values);
  parameters.lutBits = lutBits < 0 ? 0U : static_cast<uint32_t>(lutBits);
  parameters.monochrome = monochrome == JNI_TRUE ? 1U : 0U;
  parameters.seed = static_cast<uint64_t>(seed);
  return kovpanel_register(Text(env, serial).get(), &parameters);
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_setTable(
    JNIEnv* env, jclass, jstring serial, jint table, jint channel, jshortArray entries) {
  if (entries == nullptr || env->GetArrayLength(entries) != KOVPANEL_ENTRIES) {
    return KOVPANEL_BAD_ARGUMENT;
  }
  std::array<jshort, KOVPANEL_ENTRIES> signedEntries{};
  env->GetShortArrayRegion(entries, 0, KOVPANEL_ENTRIES, signedEntries.data());
  std::array<uint16_t, KOVPANEL_ENTRIES> values{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = static_cast<uint16_t>(signedEntries[i]);
  }
  return kovpanel_set_table(Text(env, serial).get(), table, channel, values.data());
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_setBacklight(
    JNIEnv* env, jclass, jstring serial, jint table, jdouble share) {
  return kovpanel_set_backlight(Text(env, serial).get(), table, share);
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_activate(JNIEnv* env, jclass,
                                                                               jstring serial,
                                                                               jint table) {
  return kovpanel_activate(Text(env, serial).get(), table);
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_sensor(JNIEnv* env, jclass,
                                                                             jstring serial,
                                                                             jintArray out) {
  int32_t counts = 0;
  const int code = kovpanel_sensor(Text(env, serial).get(), &counts);
  if (code == KOVPANEL_OK) {
    const jint value = counts;
    env->SetIntArrayRegion(out, 0, 1, &value);
  }
  return code;
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_show(
    JNIEnv* env, jclass, jstring serial, jdouble red, jdouble green, jdouble blue) {
  return kovpanel_show(Text(env, serial).get(), red, green, blue);
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_measure(JNIEnv* env, jclass,
                                                                              jstring serial,
                                                                              jdoubleArray out) {
  return storeReading(env, out, kovpanel_measure, Text(env, serial).get());
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_emission(JNIEnv* env, jclass,
                                                                               jstring serial,
                                                                               jdoubleArray out) {
  return storeReading(env, out, kovpanel_emission, Text(env, serial).get());
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_waitSeconds(JNIEnv* env,
                                                                                  jclass,
                                                                                  jstring serial,
                                                                                  jdouble seconds) {
  return kovpanel_wait(Text(env, serial).get(), seconds);
}

JNIEXPORT jint JNICALL Java_com_orva_kov_library_impl_panel_PanelLink_clock(JNIEnv* env, jclass,
                                                                            jstring serial,
                                                                            jdoubleArray out) {
  double seconds = 0.0;
  const int code = kovpanel_clock(Text(env, serial).get(), &seconds);
  if (code == KOVPANEL_OK) {
    env->SetDoubleArrayRegion(out, 0, 1, &seconds);
  }
  return code;
}

}  // extern "C"
