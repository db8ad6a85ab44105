// SPDX-License-Identifier: MIT
// Which JNI environment the native methods use.
#include <gtest/gtest.h>
#include <jni.h>

#include <cstring>

#include "tests/calibration/callbacks_fixture.h"

namespace {

using namespace kovtest;
using SerialNumberProc = jstring(JNICALL*)(JNIEnv*, jobject, jlong);

SerialNumberProc registered = nullptr;
int stringsByTheOther = 0;

jint JNICALL keepSerialNumberProc(JNIEnv*, jclass, const JNINativeMethod* methods, jint count) {
  for (jint i = 0; i < count; ++i) {
    if (std::strcmp(methods[i].name, "jniGetMeasurementSerialNumber") != 0) continue;
    registered = reinterpret_cast<SerialNumberProc>(methods[i].fnPtr);
  }
  return JNI_OK;
}

jstring JNICALL countString(JNIEnv*, const char*) {
  ++stringsByTheOther;
  return nullptr;
}

// The address that Java has been given for the method.
SerialNumberProc serialNumberProc(lumora::kov::KovCalibrator& calibrator) {
  JNIEnv* const env = lumora::kov::java::Env()->env();
  const JNINativeInterface_* const functions = env->functions;
  JNINativeInterface_ watching = *functions;
  watching.RegisterNatives = keepSerialNumberProc;
  env->functions = &watching;
  EXPECT_EQ(calibrator.registerCallback(), OM_OK);
  env->functions = functions;
  return registered;
}

TEST_F(Callbacks, SerialNumberIsMadeInTheThreadsOwnEnvironmentNotInTheOnePassedIn) {
  KovCalibrator made = calibrator();
  const SerialNumberProc proc = serialNumberProc(made);
  ASSERT_NE(proc, nullptr);
  JNINativeInterface_ counting = *lumora::kov::java::Env()->env()->functions;
  counting.NewStringUTF = countString;
  JNIEnv other{};
  other.functions = &counting;
  jvm.log.clear();
  EXPECT_NE(proc(&other, nullptr, addressOf(made)), nullptr);
  EXPECT_EQ(jvm.log, Lines{"NewStringUTF \"METER-01\""});
  EXPECT_EQ(stringsByTheOther, 0);
}

}  // namespace
