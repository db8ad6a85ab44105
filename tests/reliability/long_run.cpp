// SPDX-License-Identifier: MIT
// Runs for as long as it is told over the real Java runtime and prints what grows.
//   reliability_long_run OPERATIONS THREADS CALIBRATIONS
// Twenty lines for each kind: what, how many so far, resident size, Java heap after two full
// collections, native heap in use (KiB), open descriptors, and what L5KOV_LONG_RUN_PROBE adds.
#include <jni.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
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

// What L5KOV_LONG_RUN_PROBE, a program that gets this process's number, says in one line; of the
// Java runtime's own memory and handles, which cannot be seen from within.
std::string probed() {
  const char* const probe = std::getenv("L5KOV_LONG_RUN_PROBE");
  if (probe == nullptr) return "";
  const std::string command = probe + (' ' + std::to_string(::getpid()));
  std::FILE* const answer = ::popen(command.c_str(), "r");
  char line[256] = "";
  if (answer == nullptr || std::fgets(line, sizeof line, answer) == nullptr) std::abort();
  ::pclose(answer);
  return std::string(",") + std::string(line, std::strcspn(line, "\n"));
}

void report(const char* what, long done) {
  const long javaHeap = javaHeapKib();
  const auto heap = ::mallinfo2();
  std::printf("%s,%ld,%ld,%ld,%zu,%ld%s\n", what, done, residentKib(), javaHeap,
              heap.uordblks / 1024, descriptors(), probed().c_str());
  std::fflush(stdout);
}

template <class Operation>
void repeat(const char* what, long count, Operation operation) {
  if (count == 0) return;
  const auto begun = std::chrono::steady_clock::now();
  constexpr long kReports = 20;
  for (long done = 0; done < count; ++done) {
    if (done % std::max(count / kReports, 1L) == 0) report(what, done);
    operation(done);
  }
  report(what, count);
  const std::chrono::duration<double> lasted = std::chrono::steady_clock::now() - begun;
  std::fprintf(stderr, "%ld %s in %.1f s\n", count, what, lasted.count());
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
