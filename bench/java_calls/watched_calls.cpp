// SPDX-License-Identifier: MIT
#include "bench/java_calls/watched_calls.h"

#include <cstring>
#include <vector>

namespace bench {
namespace {

const JNINativeInterface_* own = nullptr;  // the Java runtime's functions
JNINativeInterface_ watched;
jmethodID longMethod = nullptr;
std::chrono::nanoseconds inJavaSum, inNativesSum;
int entered = 0;

// Adds to one of the sums.
template <class Clock>
struct Border {
  explicit Border(std::chrono::nanoseconds& sum) : inside(sum) { ++entered; }
  Stopwatch<Clock> inside;
};

void JNICALL callVoidMethodV(JNIEnv* env, jobject object, jmethodID method, va_list arguments) {
  if (method == longMethod) {
    const Border<ThreadClock> inside(inJavaSum);
    own->CallVoidMethodV(env, object, method, arguments);
  } else {
    const Border<WallClock> inside(inJavaSum);
    own->CallVoidMethodV(env, object, method, arguments);
  }
}

// The other functions that run Java.
template <auto kFunction>
struct Call;
template <class Result, class Target,
          Result (JNICALL* JNINativeInterface_::*kFunction)(JNIEnv*, Target, jmethodID, va_list)>
struct Call<kFunction> {
  static Result JNICALL call(JNIEnv* env, Target target, jmethodID method, va_list arguments) {
    const Border<WallClock> inside(inJavaSum);
    return (own->*kFunction)(env, target, method, arguments);
  }
  static void watch() { watched.*kFunction = &call; }
};

// One native function in front of another.
template <int kPlace, class Function>
struct Watched;
template <int kPlace, class Result, class... Arguments>
struct Watched<kPlace, Result(Arguments...)> {
  static inline Result(JNICALL* behind)(JNIEnv*, jobject, Arguments...) = nullptr;
  static Result JNICALL call(JNIEnv* env, jobject self, Arguments... arguments) {
    const Border<WallClock> inside(inNativesSum);
    return behind(env, self, arguments...);
  }
  static void* putBefore(void* function) {
    behind = reinterpret_cast<decltype(behind)>(function);
    return reinterpret_cast<void*>(&call);
  }
};

struct Native {
  const char* name;
  void* (*putBefore)(void* function);
};
constexpr Native kNatives[] = {
    {"jniSendProgress", &Watched<0, void(jint, jlong)>::putBefore},
    {"jniDrawTestpattern", &Watched<1, void(jint, jint, jint, jlong)>::putBefore},
    {"jniMeasureLuminance", &Watched<2, jdoubleArray(jlong)>::putBefore},
    {"jniFinishCalibration", &Watched<3, jboolean(jobject, jlong)>::putBefore},
    {"jniGetMeasurementSerialNumber", &Watched<4, jstring(jlong)>::putBefore},
    {"jniGetMeasurementType", &Watched<5, jint(jlong)>::putBefore},
};

jint JNICALL registerNatives(JNIEnv* env, jclass clazz, const JNINativeMethod* methods,
                             jint count) {
  std::vector<JNINativeMethod> table(methods, methods + count);
  for (JNINativeMethod& entry : table) {
    bool known = false;
    for (const Native& native : kNatives) {
      if (std::strcmp(native.name, entry.name) != 0) continue;
      entry.fnPtr = native.putBefore(entry.fnPtr);
      known = true;
    }
    if (!known) return JNI_ERR;
  }
  return own->RegisterNatives(env, clazz, table.data(), count);
}

}  // namespace

WatchedCalls::WatchedCalls(JNIEnv* env, jmethodID method) : env(env) {
  own = env->functions;
  watched = *own;
  watched.CallVoidMethodV = callVoidMethodV;
  watched.RegisterNatives = registerNatives;
  Call<&JNINativeInterface_::CallObjectMethodV>::watch();
  Call<&JNINativeInterface_::CallBooleanMethodV>::watch();
  Call<&JNINativeInterface_::CallIntMethodV>::watch();
  Call<&JNINativeInterface_::CallDoubleMethodV>::watch();
  Call<&JNINativeInterface_::CallStaticObjectMethodV>::watch();
  Call<&JNINativeInterface_::NewObjectV>::watch();
  longMethod = method;
  inJavaSum = inNativesSum = {};
  entered = 0;
  env->functions = &watched;
}

WatchedCalls::~WatchedCalls() { env->functions = own; }

int WatchedCalls::borders() const { return entered; }
std::chrono::nanoseconds WatchedCalls::inJava() const { return inJavaSum; }
std::chrono::nanoseconds WatchedCalls::inNatives() const { return inNativesSum; }

}  // namespace bench
