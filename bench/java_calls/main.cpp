// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include "bench/support/workstation.h"

int main(int argc, char** argv) {
  bench::workstation();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
