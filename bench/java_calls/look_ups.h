// SPDX-License-Identifier: MIT
#ifndef L5KOV_BENCH_JAVA_CALLS_LOOK_UPS_H_
#define L5KOV_BENCH_JAVA_CALLS_LOOK_UPS_H_

#include <jni.h>

#include "java/catalogue.h"

namespace bench {

// The look-ups of one thread by hand: 17 classes and 112 members, in the library's order. The rows
// are the library's own, so that both sides look up the same.
struct RawLookUps {
  explicit RawLookUps(JNIEnv* env) {
    using namespace lumora::kov::java::catalogue;
    all(env, kArrayList, kInteger, kDouble, kLangClass, kList, kLong, kSystem, kThrowable,
        kCalibrationResultValues, kCalibrationTargetValues, kEdidInformation,
        kExtractedCalibrationData, kMeasurementDeviceType, kLookUpTable, kMonitor, kMonitorLibrary,
        kOsd);
  }

  jmethodID ids[128] = {};
  int members = 0;
  int classes = 0;

 private:
  template <class... Tables>
  void all(JNIEnv* env, const Tables&... tables) {
    (one(env, tables), ...);
  }
  template <class Table>
  void one(JNIEnv* env, const Table& table) {
    using Kind = lumora::kov::java::Member::Kind;
    const jclass clazz = env->FindClass(table.name);
    ++classes;
    for (const auto& row : table.members) {
      if (row.kind == Kind::kEmpty) continue;
      ids[members++] = row.kind == Kind::kStatic
                           ? env->GetStaticMethodID(clazz, row.name, row.signature)
                           : env->GetMethodID(clazz, row.name, row.signature);
    }
  }
};

}  // namespace bench

#endif  // L5KOV_BENCH_JAVA_CALLS_LOOK_UPS_H_
