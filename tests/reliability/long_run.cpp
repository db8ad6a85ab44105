// SPDX-License-Identifier: MIT
// Runs for as long as it is told over the real Java runtime and prints what grows.
//   reliability_long_run OPERATIONS THREADS CALIBRATIONS
// One line per tenth: operations, resident size, Java heap after a full collection, native heap in
// use, open descriptors. The library's figures are flat when the last lines resemble the second.
#include <jni.h>
#include <malloc.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "tests/real/support.h"

namespace {

using realtest::Workstation;

long residentKib() {
  long pages = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

// After two collections, for one leaves what has just become unreachable through finalizers.
long javaHeapKib() {
  JNIEnv* env = lumora::kov::java::Env()->env();
  env->PushLocalFrame(16);
  const jclass runtimeClass = env->FindClass("java/lang/Runtime");
  const jobject runtime = env->CallStaticObjectMethod(
      runtimeClass, env->GetStaticMethodID(runtimeClass, "getRuntime", "()Ljava/lang/Runtime;"));
  for (int i = 0; i < 2; ++i) {
    env->CallVoidMethod(runtime, env->GetMethodID(runtimeClass, "gc", "()V"));
  }
  const jlong total =
      env->CallLongMethod(runtime, env->GetMethodID(runtimeClass, "totalMemory", "()J"));
  const jlong unused =
      env->CallLongMethod(runtime, env->GetMethodID(runtimeClass, "freeMemory", "()J"));
  env->PopLocalFrame(nullptr);
  return static_cast<long>((total - unused) / 1024);
}

long descriptors() {
  long count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    count += entry.path().empty() ? 0 : 1;
  }
  return count;
}

void report(const char* what, long done) {
  const auto heap = ::mallinfo2();
  std::printf("%-12s %10ld  resident %7ld KiB  Java heap %6ld KiB  native heap %6zu KiB  fds %ld\n",
              what, done, residentKib(), javaHeapKib(), heap.uordblks / 1024, descriptors());
  std::fflush(stdout);
}

template <class Operation>
void repeat(const char* what, long count, Operation operation) {
  const auto begun = std::chrono::steady_clock::now();
  for (long done = 0; done < count; ++done) {
    if (done % (count / 10 > 0 ? count / 10 : 1) == 0) report(what, done);
    operation(done);
  }
  report(what, count);
  const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - begun;
  std::printf("%-12s %10ld  in %.1f s\n", what, count, lasted.count());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: %s OPERATIONS THREADS CALIBRATIONS\n", argv[0]);
    return 2;
  }
  const Workstation workstation;
  const lumora::Monitor monitor = Workstation::findColourMonitor();
  repeat("operations", std::atol(argv[1]), [&](long number) {
    if (monitor.getModelName() != "OR-C321") std::abort();
    if (number % 100 == 0 && monitor.getExtractCalibrationData().empty()) std::abort();
    if (number % 1000 == 0) Workstation::findColourMonitor();
  });
  repeat("threads", std::atol(argv[2]), [&](long) {
    std::thread([&] {
      if (monitor.getSerialNumber().empty()) std::abort();
    }).join();
  });
  realtest::Calibration run(realtest::kColour);
  if (run.calibrator.registerCallback() != OM_OK) std::abort();
  repeat("calibrations", std::atol(argv[3]), [&](long) {
    realtest::Calibration once(realtest::kColour);
    if (setTarget(once, realtest::dicomTarget()) != OM_OK) std::abort();
    if (once.calibrator.execute() != OM_OK) std::abort();
    if (once.calibrator.getCalibrationData().size() == 0) std::abort();
  });
}
