// SPDX-License-Identifier: MIT
// Java calling back: a thousand calls a measurement, from one place in Java.
#include <array>
#include <chrono>
#include <set>
#include <string>

#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"
#include "simulator/meter/sim_meter.h"

namespace {

using bench::raw;
using lumora::kov::PatchRecord;

constexpr jint kCalls = 1000;

// The host: does next to nothing, so that only the way to it counts.
class Host : public lumora::kov::KovCalibratorDelegate {
 public:
  void showColorPatch(PatchRecord& patch) override { sum += patch[4]; }
  void measure(void*, PatchRecord* patch, PatchRecord* result) override {
    (*result)[8] = (*patch)[4];
    (*result)[10] = 0.3;
    (*result)[11] = 0.3;
  }
  void progress(double fraction) override { sum += fraction; }
  void notifyEvent(std::string) override {}

  double sum = 0.0;
};

Host& host() {
  static Host one;
  return one;
}

jlong libraryHandle() {
  static void* const meter = MDSimOpen(163, "METER-17", bench::kSerial);
  static lumora::kov::KovCalibrator calibrator(bench::kModel, bench::kSerial, 0, meter, "", "",
                                               &host());
  static const OmError registered = calibrator.registerCallback();
  if (registered != OM_OK) throw std::runtime_error("callbacks refused");
  return static_cast<jlong>(reinterpret_cast<std::intptr_t>(&calibrator));
}

// ---- By hand ----

struct RawRun {
  lumora::kov::KovCalibratorDelegate* host;
  PatchRecord patch;
};

RawRun* runOf(jlong handle) { return reinterpret_cast<RawRun*>(handle); }

void JNICALL rawProgress(JNIEnv*, jobject, jint percent, jlong handle) {
  runOf(handle)->host->progress(percent / 100.0);
}

void JNICALL rawPatch(JNIEnv*, jobject, jint red, jint green, jint blue, jlong handle) {
  RawRun* run = runOf(handle);
  PatchRecord patch = {};
  patch[4] = red / 255.0;
  patch[5] = green / 255.0;
  patch[6] = blue / 255.0;
  run->host->showColorPatch(patch);
  run->patch = patch;
}

jdoubleArray JNICALL rawMeasure(JNIEnv* env, jobject, jlong handle) {
  RawRun* run = runOf(handle);
  PatchRecord patch = run->patch;
  PatchRecord result = {};
  run->host->measure(nullptr, &patch, &result);
  const double values[] = {result[8], result[10], result[11]};
  const jdoubleArray array = env->NewDoubleArray(3);
  env->SetDoubleArrayRegion(array, 0, 3, values);
  return array;
}

jlong rawHandle() {
  static RawRun run{&host(), {}};
  static const bool registered = [] {
    JNIEnv* env = raw().env;
    const auto entry = [](const char* name, const char* signature, auto* procedure) {
      return JNINativeMethod{const_cast<char*>(name), const_cast<char*>(signature),
                             reinterpret_cast<void*>(procedure)};
    };
    const JNINativeMethod table[] = {entry("jniSendProgress", "(IJ)V", &rawProgress),
                                     entry("jniDrawTestpattern", "(IIIJ)V", &rawPatch),
                                     entry("jniMeasureLuminance", "(J)[D", &rawMeasure)};
    return env->RegisterNatives(bench::hostClass("RawFunctions"), table, 3) == 0;
  }();
  if (!registered) throw std::runtime_error("functions refused");
  return static_cast<jlong>(reinterpret_cast<std::intptr_t>(&run));
}

// ---- Both ----

// Java's compiler changes the loops behind the measurement's back, once, some hundred thousand calls
// into the process: that has to be over.
template <class Work>
void warmUp(Work run) {
  constexpr auto kLongEnough = std::chrono::milliseconds(800);
  const auto end = std::chrono::steady_clock::now() + kLongEnough;
  while (std::chrono::steady_clock::now() < end) run();
}

enum Side { kLibrary, kRaw };

template <Side kSide>
void callback(benchmark::State& state, const char* name, const char* signature) {
  JNIEnv* env = raw().env;
  const jlong handle = kSide == kLibrary ? libraryHandle() : rawHandle();
  static const jclass loops = bench::hostClass(kSide == kLibrary ? "CallbackLoops" : "RawLoops");
  const jmethodID loop = env->GetStaticMethodID(loops, name, signature);
  const bool returns = signature[std::char_traits<char>::length(signature) - 1] == 'D';
  const auto run = [&] {
    if (returns) return env->CallStaticDoubleMethod(loops, loop, kCalls, handle);
    env->CallStaticVoidMethod(loops, loop, kCalls, handle);
    return 0.0;
  };
  static std::set<std::string> warm;
  if (warm.insert(name).second) warmUp(run);
  bench::measure(state, run);
}

template <Side kSide>
void progress(benchmark::State& state) { callback<kSide>(state, "progress", "(IJ)V"); }
template <Side kSide>
void patch(benchmark::State& state) { callback<kSide>(state, "patch", "(IJ)V"); }
template <Side kSide>
void measureCallback(benchmark::State& state) { callback<kSide>(state, "measure", "(IJ)D"); }

}  // namespace

BENCHMARK(progress<kLibrary>)->Name("callback_progress/library");
BENCHMARK(progress<kRaw>)->Name("callback_progress/raw");
BENCHMARK(patch<kLibrary>)->Name("callback_patch/library");
BENCHMARK(patch<kRaw>)->Name("callback_patch/raw");
BENCHMARK(measureCallback<kLibrary>)->Name("callback_measure/library");
BENCHMARK(measureCallback<kRaw>)->Name("callback_measure/raw");
