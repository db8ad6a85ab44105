// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_JAVA_CALLS_RAW_JAVA_H_
#define L5KOV_BENCH_JAVA_CALLS_RAW_JAVA_H_

#include <jni.h>

#include <stdexcept>
#include <string>

// The other side of each comparison: Java called by hand, with identifiers looked up once, and with
// nothing that the work does not need.
namespace bench {

struct RawJava {
  RawJava();

  JNIEnv* env;
  jobject monitorLibrary;  // KovMonitorLibrary
  jobject monitor;  // the colour monitor

  jclass listClass, monitorClass, monitorLibraryClass, edidClass, lutClass, entryClass, targetClass,
      deviceTypeClass, integerClass, doubleClass;
  jmethodID listSize, listGet, getInstance, getMonitors, getMonitor;
  jmethodID getModel, getWorkingHours, getConnectionType, getEdidInformation, getLookUpTables,
      extractCalibrationData;
  jmethodID edidModelName, activate, intValue, doubleValue;
};

// The one of the main thread.
const RawJava& raw();

// The three steps that every call into Java needs when no exception may be missed.
template <class Call>
auto checked(JNIEnv* env, Call call) {
  env->ExceptionClear();
  const auto result = call();
  if (env->ExceptionOccurred() != nullptr) {
    env->ExceptionDescribe();
    throw std::runtime_error("a Java exception");
  }
  return result;
}

inline std::string copyOfText(JNIEnv* env, jobject text) {
  const auto string = static_cast<jstring>(text);
  const char* characters = env->GetStringUTFChars(string, nullptr);
  std::string copy = characters;
  env->ReleaseStringUTFChars(string, characters);
  return copy;
}

// A class of bench/host, defined by the loader that knows the jars; a global reference.
jclass hostClass(const char* name);

}  // namespace bench

#endif  // L5KOV_BENCH_JAVA_CALLS_RAW_JAVA_H_
