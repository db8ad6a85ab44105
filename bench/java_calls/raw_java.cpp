// SPDX-License-Identifier: MIT
#include "bench/java_calls/raw_java.h"

#include <fstream>
#include <iterator>
#include <vector>

#include "bench/support/workstation.h"

namespace bench {
namespace {

jclass kept(JNIEnv* env, const char* name) {
  const jclass found = env->FindClass(name);
  if (found == nullptr) throw std::runtime_error(name);
  return static_cast<jclass>(env->NewGlobalRef(found));
}

}  // namespace

RawJava::RawJava() : env(lumora::kov::java::Env()->env()) {
  colourMonitor();
  env->PushLocalFrame(64);
  listClass = kept(env, "java/util/List");
  listSize = env->GetMethodID(listClass, "size", "()I");
  listGet = env->GetMethodID(listClass, "get", "(I)Ljava/lang/Object;");
  integerClass = kept(env, "java/lang/Integer");
  intValue = env->GetMethodID(integerClass, "intValue", "()I");
  doubleClass = kept(env, "java/lang/Double");
  doubleValue = env->GetMethodID(doubleClass, "doubleValue", "()D");

  monitorLibraryClass = kept(env, "com/orva/kov/library/impl/KovMonitorLibrary");
  getInstance = env->GetStaticMethodID(monitorLibraryClass, "getInstance",
                                       "()Lcom/orva/kov/library/api/MonitorLibrary;");
  getMonitors = env->GetMethodID(monitorLibraryClass, "getMonitors", "()Ljava/util/List;");
  getMonitor = env->GetMethodID(
      monitorLibraryClass, "getMonitor",
      "(Ljava/lang/String;Ljava/lang/String;)Lcom/orva/kov/library/api/Monitor;");

  monitorClass = kept(env, "com/orva/kov/library/api/Monitor");
  getModel = env->GetMethodID(monitorClass, "getModel", "()Ljava/lang/String;");
  getWorkingHours = env->GetMethodID(monitorClass, "getWorkingHours", "()I");
  getConnectionType = env->GetMethodID(monitorClass, "getConnectionType", "()Ljava/lang/String;");
  getEdidInformation = env->GetMethodID(monitorClass, "getEdidInformation",
                                        "()Lcom/orva/kov/library/api/EdidInformation;");
  getLookUpTables = env->GetMethodID(monitorClass, "getLookUpTables", "()Ljava/util/List;");
  extractCalibrationData =
      env->GetMethodID(monitorClass, "extractCalibrationData", "()Ljava/util/List;");
  edidClass = kept(env, "com/orva/kov/library/api/EdidInformation");
  edidModelName = env->GetMethodID(edidClass, "getModelName", "()Ljava/lang/String;");
  lutClass = kept(env, "com/orva/kov/library/api/LookUpTable");
  activate = env->GetMethodID(lutClass, "activate", "()V");
  entryClass = kept(env, "com/orva/kov/library/api/ExtractedCalibrationData");
  targetClass = kept(env, "com/orva/kov/library/api/CalibrationTargetValues");
  deviceTypeClass = kept(env, "com/orva/kov/library/api/MeasurementDeviceType");

  monitorLibrary = env->NewGlobalRef(env->CallStaticObjectMethod(monitorLibraryClass, getInstance));
  monitor = env->NewGlobalRef(env->CallObjectMethod(
      monitorLibrary, getMonitor, env->NewStringUTF(kModel), env->NewStringUTF(kSerial)));
  env->PopLocalFrame(nullptr);
}

const RawJava& raw() {
  static const RawJava one;
  return one;
}

jclass hostClass(const char* name) {
  JNIEnv* env = raw().env;
  std::ifstream file(std::string(L5KOV_BENCH_CLASSES) + '/' + name + ".class", std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  const jclass loaderClass = env->FindClass("java/lang/ClassLoader");
  const jmethodID systemLoader =
      env->GetStaticMethodID(loaderClass, "getSystemClassLoader", "()Ljava/lang/ClassLoader;");
  const jobject loader = env->CallStaticObjectMethod(loaderClass, systemLoader);
  const jclass defined =
      env->DefineClass(name, loader, reinterpret_cast<const jbyte*>(bytes.data()),
                       static_cast<jsize>(bytes.size()));
  if (defined == nullptr) {
    env->ExceptionDescribe();
    throw std::runtime_error(std::string("cannot define ") + name);
  }
  return static_cast<jclass>(env->NewGlobalRef(defined));
}

}  // namespace bench
