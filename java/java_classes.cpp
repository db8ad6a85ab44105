// SPDX-License-Identifier: MIT
#include "java/java_classes.h"

namespace lumora::kov::java {

void lookUpMembers(JNIEnv* env, jclass clazz, const Member* rows, const std::size_t* slots,
                   std::size_t count, jmethodID* ids) {
  for (std::size_t row = 0; row < count; ++row) {
    ids[slots[row]] = jni::methodId(env, clazz, rows[row]);
  }
}

void JavaClasses::build(JavaEnv* owner) {
  arrayList.emplace(owner);
  integer.emplace(owner);
  doubleClass.emplace(owner);
  langClass.emplace(owner);
  list.emplace(owner);
  longClass.emplace(owner);
  system.emplace(owner);
  throwable.emplace(owner);
  calibrationResultValues.emplace(owner);
  calibrationTargetValues.emplace(owner);
  edidInformation.emplace(owner);
  extractedCalibrationData.emplace(owner);
  // Kept: before the look-up tables, although its slot comes after theirs. FindClass loads classes,
  // so their order is visible to the Java runtime.
  measurementDeviceType.emplace(owner);
  lookUpTable.emplace(owner);
  monitor.emplace(owner);
  monitorLibrary.emplace(owner);
  osd.emplace(owner);
}

JArrayList JArrayList::create(JavaEnv* javaEnv) {
  return wrap<JArrayList>(javaEnv, javaEnv->classes().arrayList->construct<void()>());
}

JInteger JInteger::create(JavaEnv* javaEnv, std::int32_t value) {
  return wrap<JInteger>(javaEnv, javaEnv->classes().integer->construct<void(std::int32_t)>(value));
}

JDouble JDouble::create(JavaEnv* javaEnv, double value) {
  return wrap<JDouble>(javaEnv, javaEnv->classes().doubleClass->construct<void(double)>(value));
}

JApiCalibrationResultValues JApiCalibrationResultValues::create(JavaEnv* javaEnv,
                                                                double maxLuminance,
                                                                double minLuminance,
                                                                std::int32_t backlightSensorValue) {
  return wrap<JApiCalibrationResultValues>(
      javaEnv,
      javaEnv->classes().calibrationResultValues->construct<void(double, double, std::int32_t)>(
          maxLuminance, minLuminance, backlightSensorValue));
}

JApiCalibrationTargetValues JApiCalibrationTargetValues::create(JavaEnv* javaEnv) {
  return wrap<JApiCalibrationTargetValues>(
      javaEnv, javaEnv->classes().calibrationTargetValues->construct<void()>());
}

JApiCalibrationTargetValues JApiCalibrationTargetValues::copyOf(
    JavaEnv* javaEnv, const JApiCalibrationTargetValues& other) {
  return wrap<JApiCalibrationTargetValues>(
      javaEnv,
      javaEnv->classes().calibrationTargetValues->construct<void(JApiCalibrationTargetValues)>(
          other.reference()));
}

JApiMeasurementDeviceType JApiMeasurementDeviceType::create(JavaEnv* javaEnv) {
  return wrap<JApiMeasurementDeviceType>(
      javaEnv, javaEnv->classes().measurementDeviceType->construct<void()>());
}

JApiMonitorLibrary JApiMonitorLibrary::getInstance(JavaEnv* javaEnv) {
  return wrap<JApiMonitorLibrary>(javaEnv, javaEnv->classes().monitorLibrary->getInstance());
}

}  // namespace lumora::kov::java
