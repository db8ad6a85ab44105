#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Produces the figures of docs/reliability.md again.
#   tools/reliability/run.sh PART...
# Parts: calls allocations race hardening faults sanitize preloaded threads valgrind xcheck fuzz long
#        calibrations (5,000 in one process) mutate coverage
#        hours (an hour of processor time for each fuzz target; goes on where it stopped)
#        quick (what takes less than about a minute once built), all (each of them, hours last)
# Builds lie in build/reliability; each part writes build/reliability/PART.txt.
# Environment: FUZZ_SECONDS (60), FUZZ_FOLDER (build/reliability/fuzz), LONG_RUN
# ("10000000 20000 1000"), jobs (all cores), PLAIN_FOLDER (a finished build with optimisation and
# debug information, such as that of ./test, to be used for calls, allocations and valgrind).
# Debian packages beside those of ./test: clang-14 libclang-rt-14-dev valgrind gcovr binutils.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/setup/environment.sh
out=$PWD/build/reliability
mkdir -p "$out"
fuzz=${FUZZ_FOLDER:-$out/fuzz}
fake="pocketjson;fake_jvm;support;step_clock;java;platform;monitor;calibration;reliability"
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi

# configure NAME ARGUMENTS: a build of the tests over the fake runtime
configure() {
  local name=$1; shift
  cmake -S . -B "$out/$name" -G Ninja -DL5KOV_BUILD_TOOLS=OFF -DL5KOV_BUILD_BENCH=OFF \
    "-DL5KOV_TEST_FOLDERS=$fake" -DJAVA_HOME="$JAVA_HOME" "${launcher[@]}" "$@" \
    >"$out/$name.configure.log" 2>&1 ||
    { cat "$out/$name.configure.log" >&2; exit 1; }
}
# build NAME [TARGET...]
build() {
  local name=$1; shift
  cmake --build "$out/$name" -j "$jobs" --target "${@:-all}" >"$out/$name.build.log" 2>&1 ||
    { tail -40 "$out/$name.build.log" >&2; exit 1; }
}
plain() { configure plain -DCMAKE_BUILD_TYPE=RelWithDebInfo; build plain; }
# tests NAME REGEX LEAST [any]: the tests of a build that match, without the slow ones. Programs that
# are not built have none, so there must be so many at least.
tests() {
  local which=(--test-dir "$out/$1" -R "$2" -E _NOT_BUILT) count
  [ -n "${4:-}" ] || which+=(-LE slow)
  count=$(ctest -N "${which[@]}" | sed -n 's/^Total Tests: //p')
  [ "$count" -ge "$3" ] || { echo "$count tests, at least $3 expected" >&2; exit 1; }
  ctest "${which[@]}" -j "$jobs" --output-on-failure
}
# over_fake_java PROGRAM [COMMAND...]: a test program of the plain build, beneath a command
over_fake_java() {
  local program=$1 folder=${PLAIN_FOLDER:-$out/plain}; shift
  [ -n "${PLAIN_FOLDER:-}" ] || plain
  LD_LIBRARY_PATH=$folder/tests/support/vendor "$@" "$folder/bin/$program"
}
vendors() { echo "$out/$1/tests/support/vendor"; }

# long_run NAME OPERATIONS THREADS CALIBRATIONS [OPTION...]: over the Java runtime, with a plot;
# fails when something grows beyond its limit
long_run() {
  local name=$1 amounts=("${@:2:3}") phases=(); shift 4
  [ "${amounts[0]}" -eq 0 ] || phases+=(operations)
  [ "${amounts[1]}" -eq 0 ] || phases+=(threads)
  [ "${amounts[2]}" -eq 0 ] || phases+=(calibrations)
  plain; build plain reliability_long_run
  JAVA_TOOL_OPTIONS=-XX:NativeMemoryTracking=summary \
    L5KOV_LONG_RUN_PROBE=$PWD/tools/reliability/jvm_memory.sh \
    L5KOV_COMMON_APPDATA=$out/plain/tests/reliability/appdata LD_LIBRARY_PATH=$out/plain/simulator \
    "$out/plain/bin/reliability_long_run" "${amounts[@]}" >"$out/$name.csv"
  tools/reliability/long_run_report.py "$out/$name.csv" --svg "$out/$name-run.svg" \
    --check "${phases[@]}" "$@"
}

run_part() {
  case "$1" in
    calls) over_fake_java reliability_every_call_fails ;;
    allocations) over_fake_java reliability_every_allocation_fails ;;
    race) plain; tests plain '^(Race|RealCancel)\.' 6 ;;
    hardening) plain; tests plain '^reliability_(hardening|set_user_id)$' 2 ;;
    faults)
      local suites='BrokenInstallation|CurrentFolder|CarelessPlugin|NameTable|StartUpFailure'
      plain; tests plain "^($suites|DelegateException)\." 70 ;;
    sanitize)
      # All units, kovctl's too, and everything over the fake Java runtime.
      configure sanitize -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-O1 \
        -DL5KOV_SANITIZE=address,undefined -DL5KOV_BUILD_SIMULATOR=OFF -DL5KOV_BUILD_TOOLS=ON \
        "-DL5KOV_TEST_FOLDERS=$fake;kovctl_report;kovctl"
      build sanitize
      ASAN_OPTIONS=detect_leaks=1 tests sanitize . 1100 ;;
    preloaded)
      # The library alone with AddressSanitizer, beneath plain tests that use it as hosts do.
      plain
      configure sanitized_library -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-O1 \
        -DL5KOV_SANITIZE=address,undefined -DL5KOV_BUILD_SIMULATOR=OFF
      build sanitized_library l5kov l5kov_stepclock
      # Not those that look into the library's own objects or replace operator new themselves.
      find "$out/plain/bin" -maxdepth 1 -type f -executable \
        \( -name 'java_test' -o -name 'java_process_test' -o -name 'monitor_*_test' \
        -o -name 'calibrator_*test' -o -name 'reliability_strangers' \
        -o -name 'reliability_name_table' \) \
        -print0 | sort -z | xargs -0 tools/reliability/run_preloaded.py --least 480 \
        "$out/sanitized_library/lib" "$(vendors plain)" ;;
    threads)
      configure threads -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-O1 -DL5KOV_SANITIZE=thread \
        -DL5KOV_BUILD_SIMULATOR=OFF
      build threads reliability_race java_test monitor_thread_test calibrator_cancel_test
      local suites='Race|Threads|HandleOnThreads|HandleOfTheFirstThread|Cancel|StartUp'
      tests threads "^($suites|DeleteJavaVm|JavaExceptionTest)\." 80 ;;
    xcheck)
      tools/setup/java-runtimes.sh "$out/plain/runtimes"
      configure plain -DCMAKE_BUILD_TYPE=RelWithDebInfo "-DL5KOV_TEST_FOLDERS=$fake;real"
      build plain
      tests plain '^real\.' 380 any ;;
    valgrind)
      GTEST_FILTER='*LookUps*' over_fake_java reliability_every_call_fails valgrind \
        --error-exitcode=9 --leak-check=full --show-leak-kinds=definite \
        --errors-for-leak-kinds=definite | tee "$out/valgrind.tests"
      grep -q '^\[==========\] Running 1 test ' "$out/valgrind.tests" ;;
    fuzz)
      fuzz/build.sh "$fuzz" >"$out/fuzz.build.log" 2>&1 || { tail "$out/fuzz.build.log"; exit 1; }
      fuzz/run.sh "$fuzz" "${FUZZ_SECONDS:-60}" ;;
    hours)
      fuzz/build.sh "$fuzz" >"$out/fuzz.build.log" 2>&1 || { tail "$out/fuzz.build.log"; exit 1; }
      fuzz/accumulate.py "$fuzz" --hours 1 --beside "$jobs" ;;
    long)
      read -ra amounts <<<"${LONG_RUN:-10000000 20000 1000}"
      long_run long "${amounts[@]}" ;;
    calibrations) long_run calibrations 0 0 5000 --calibration-bytes 64 ;;
    mutate)
      rm -rf "$out/copy"; mkdir -p "$out/copy"; git archive HEAD | tar -x -C "$out/copy"
      cmake -S "$out/copy" -B "$out/mutants" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
        -DL5KOV_BUILD_TOOLS=OFF -DL5KOV_BUILD_BENCH=OFF -DL5KOV_BUILD_SIMULATOR=OFF \
        "-DL5KOV_TEST_FOLDERS=$fake" -DJAVA_HOME="$JAVA_HOME" >"$out/mutants.configure.log" 2>&1
      build mutants
      tools/reliability/mutate.py "$out/copy" "$out/mutants" --jobs "$jobs" \
        --table "$out/mutations.md" ;;
    coverage)
      configure coverage -DCMAKE_BUILD_TYPE=Debug -DL5KOV_COVERAGE=ON -DL5KOV_BUILD_SIMULATOR=OFF
      build coverage
      tests coverage . 950 >"$out/coverage.tests.txt"
      gcovr --root . --object-directory "$out/coverage" --exclude-throw-branches \
        --exclude-unreachable-branches --filter 'pocketjson/' --filter 'java/' --filter 'monitor/' \
        --filter 'calibration/' --filter 'platform/' --filter 'include/'
      gcovr --root . --object-directory "$out/coverage" --exclude-throw-branches \
        --exclude-unreachable-branches --branches --filter 'pocketjson/' --filter 'java/' \
        --filter 'monitor/' --filter 'calibration/' --filter 'platform/' --filter 'include/' ;;
    *) echo "no such part: $1" >&2; exit 2 ;;
  esac
}

[ $# -gt 0 ] || { sed -n '3,12p' "$0" >&2; exit 2; }
parts=()
for part in "$@"; do
  case "$part" in
    quick) parts+=(calls allocations race hardening faults) ;;
    all) parts+=(calls allocations race hardening faults sanitize preloaded threads valgrind xcheck
                 fuzz long calibrations mutate coverage hours) ;;
    *) parts+=("$part") ;;
  esac
done
for part in "${parts[@]}"; do
  echo "== $part"
  (set -e; run_part "$part") 2>&1 | tee "$out/$part.txt"
done
