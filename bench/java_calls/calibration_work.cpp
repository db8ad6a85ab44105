// SPDX-License-Identifier: MIT
// A whole calibration of 52 gray levels: through the library, driven from Java alone with the same
// instrument, and what of the first is the library's own.
#include <algorithm>

#include "bench/java_calls/calibration_host.h"
#include "bench/java_calls/raw_java.h"
#include "bench/java_calls/watched_calls.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

using bench::Instrument;
using bench::Stopwatch;
using bench::ThreadClock;
using bench::WallClock;
using lumora::kov::PatchRecord;

int calibrateOnce() {
  Instrument instrument;
  return bench::calibrate(instrument);
}

void calibration(benchmark::State& state) {
  bench::colourMonitor();
  bench::workstation().settle("");
  const int steps = calibrateOnce();
  if (steps <= 0) return state.SkipWithError("the calibration failed");
  bench::measure(state, calibrateOnce);
  state.counters["steps"] = steps;
}

// ---- From Java alone. The instrument is the maker's native library for it, too. ----

void* meterOf(jlong handle) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(handle)); }

jlong JNICALL openMeter(JNIEnv*, jclass) {
  void* const meter = MDSimOpen(163, "METER-17", bench::kCalibratedSerial);
  return static_cast<jlong>(reinterpret_cast<std::intptr_t>(meter));
}
void JNICALL closeMeter(JNIEnv*, jclass, jlong meter) { MDSimClose(meterOf(meter)); }
void JNICALL show(JNIEnv*, jclass, jlong meter, jdouble red, jdouble green, jdouble blue) {
  MDSimShowPatch(meterOf(meter), red, green, blue);
}
jdoubleArray JNICALL measureByMeter(JNIEnv* env, jclass, jlong meter) {
  double values[3] = {};
  MDSimMeasure(meterOf(meter), &values[0], &values[1], &values[2]);
  const jdoubleArray array = env->NewDoubleArray(3);
  env->SetDoubleArrayRegion(array, 0, 3, values);
  return array;
}

jclass javaHost() {
  const jclass host = bench::hostClass("JavaHost");
  const auto entry = [](const char* name, const char* signature, auto* procedure) {
    return JNINativeMethod{const_cast<char*>(name), const_cast<char*>(signature),
                           reinterpret_cast<void*>(procedure)};
  };
  const JNINativeMethod table[] = {
      entry("openMeter", "()J", &openMeter), entry("closeMeter", "(J)V", &closeMeter),
      entry("show", "(JDDD)V", &show), entry("measure", "(J)[D", &measureByMeter)};
  if (bench::raw().env->RegisterNatives(host, table, 4) != 0) {
    throw std::runtime_error("the Java host's functions were refused");
  }
  return host;
}

void calibrationFromJava(benchmark::State& state) {
  const bench::RawJava& r = bench::raw();
  bench::workstation().settle("");
  static const jclass host = javaHost();
  const jmethodID method =
      r.env->GetStaticMethodID(host, "calibrate", "(Ljava/lang/String;Ljava/lang/String;)I");
  const auto run = [&] {
    r.env->PushLocalFrame(8);
    const jint steps = bench::checked(r.env, [&] {
      return r.env->CallStaticIntMethod(host, method, r.env->NewStringUTF(bench::kCalibratedModel),
                                        r.env->NewStringUTF(bench::kCalibratedSerial));
    });
    r.env->PopLocalFrame(nullptr);
    return steps;
  };
  const int steps = run();
  bench::measure(state, run);
  state.counters["steps"] = steps;
}

// ---- The library's own share ----

class TimedInstrument : public Instrument {
 public:
  void showColorPatch(PatchRecord& patch) override {
    const Stopwatch<WallClock> inside(inHost);
    Instrument::showColorPatch(patch);
  }
  void measure(void* device, PatchRecord* patch, PatchRecord* result) override {
    const Stopwatch<WallClock> inside(inHost);
    Instrument::measure(device, patch, result);
  }
  std::chrono::nanoseconds inHost{};
};

// All of a calibrator's life but what Java does in the calls that the library makes, and the host
// in its functions. What else the library asks of the Java runtime (references, texts, the
// registration of its functions) counts as its own. At each border the clock answers once on our
// side.
std::chrono::nanoseconds ownTimeOf(const bench::RawJava& r, jmethodID performCalibration,
                                   double clockAnswer, int& borders, int& steps) {
  TimedInstrument instrument;
  std::chrono::nanoseconds all{};
  const bench::WatchedCalls watched(r.env, performCalibration);
  {
    const Stopwatch<ThreadClock> whole(all);
    if (bench::calibrate(instrument) <= 0) throw std::runtime_error("the calibration failed");
  }
  steps = instrument.steps;
  borders = watched.borders() + instrument.steps;
  return all - watched.inJava() + watched.inNatives() - instrument.inHost -
         std::chrono::nanoseconds(static_cast<std::int64_t>(clockAnswer * borders));
}

// Nanoseconds, when nothing else comes between.
double clockAnswer() {
  constexpr int kTimes = 1000;
  double least = 1e9;
  for (int i = 0; i < 50; ++i) {
    std::chrono::nanoseconds all{}, inner{};
    {
      const Stopwatch<WallClock> whole(all);
      for (int k = 0; k < kTimes; ++k) const Stopwatch<WallClock> one(inner);
    }
    least = std::min(least, static_cast<double>(all.count()) / (2 * kTimes));
  }
  return least;
}

void ownShare(benchmark::State& state) {
  const bench::RawJava& r = bench::raw();
  bench::workstation().settle("");
  const jmethodID performCalibration = r.env->GetMethodID(
      r.monitorClass, "performCalibration", "(Ljava/util/List;ZIZLjava/lang/String;J)V");
  const double answer = clockAnswer();
  int borders = 0, steps = 0;
  for (auto _ : state) {
    const auto own = ownTimeOf(r, performCalibration, answer, borders, steps);
    state.SetIterationTime(std::chrono::duration<double>(own).count());
  }
  state.counters["clock_ns"] = answer;
  state.counters["borders"] = borders;
  state.counters["steps"] = steps;
}

}  // namespace

BENCHMARK(calibration)->Name("calibration/library");
BENCHMARK(calibrationFromJava)->Name("calibration/raw");
// In a process of its own: where functions are registered again under other addresses, Java drops
// what it has compiled for calling them. A fixed number: where other processes come between often
// enough, what is taken off by the clock leaves less than nothing, and no number would be enough.
BENCHMARK(ownShare)->Name("calibration_own/library")->UseManualTime()->Iterations(200);
