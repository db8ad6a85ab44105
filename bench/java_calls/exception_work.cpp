// SPDX-License-Identifier: MIT
// A call that ends in a Java exception, caught as a C++ one.
#include "bench/java_calls/raw_handle.h"
#include "bench/java_calls/raw_java.h"
#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

using bench::measure;
using bench::raw;
using bench::RawException;

constexpr const char* kFault =
    "fault.1.call = Monitor.getConnectionType\n"
    "fault.1.nth = 0\n"
    "fault.1.action = throw\n"
    "fault.1.class = java.io.IOException\n"
    "fault.1.message = 30210045: Error sending data (port 3)\n";

void exception(benchmark::State& state) {
  bench::workstation().settle("", kFault);
  measure(state, [monitor = &bench::colourMonitor()] {
    try {
      return monitor->getConnectionType().size();
    } catch (const lumora::kov::java::JavaException& e) {
      return e.getClassName().size();
    }
  });
  bench::workstation().settle("");
}

void exceptionByHand(benchmark::State& state) {
  bench::workstation().settle("", kFault);
  const bench::RawJava& r = raw();
  measure(state, [&r] {
    std::size_t letters = 0;
    try {
      r.env->PushLocalFrame(32);
      r.env->ExceptionClear();
      r.env->CallObjectMethod(r.monitor, r.getConnectionType);
      if (const jthrowable thrown = r.env->ExceptionOccurred()) {
        bench::translateByHand(r.env, thrown);
      }
    } catch (const RawException& e) {
      r.env->PopLocalFrame(nullptr);
      letters = e.className.size();
      r.env->DeleteGlobalRef(e.throwable);
    }
    return letters;
  });
  bench::workstation().settle("");
}

// By hand, out of a handle.
void exceptionOfHandle(benchmark::State& state) {
  bench::workstation().settle("", kFault);
  const bench::RawJava& r = raw();
  const bench::RawHandle handle(r.monitor);
  measure(state, [&r, &handle] {
    std::size_t letters = 0;
    try {
      letters = handle.getConnectionType().size();
    } catch (const RawException& e) {
      letters = e.className.size();
      r.env->DeleteGlobalRef(e.throwable);
    }
    return letters;
  });
  bench::workstation().settle("");
}

}  // namespace

BENCHMARK(exception)->Name("exception/library");
BENCHMARK(exceptionByHand)->Name("exception/raw");
BENCHMARK(exceptionOfHandle)->Name("exception/raw_handle");
