#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Produces the figures of docs/reliability.md again.
#   tools/reliability/run.sh PART...
# Parts: calls allocations race sanitize threads valgrind hardening faults fuzz long mutate coverage
#        quick (what takes less than about a minute once built), all
# Builds lie in build/reliability; each part writes build/reliability/PART.txt.
# Environment: FUZZ_SECONDS (60), LONG_RUN ("10000000 20000 1000"), jobs (all cores).
# Debian packages beside those of ./test: clang-14 libclang-rt-14-dev valgrind gcovr binutils.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/setup/environment.sh
out=$PWD/build/reliability
mkdir -p "$out"
fake="pocketjson;fake_jvm;support;step_clock;java;platform;monitor;calibration;reliability"

# configure NAME ARGUMENTS: a build of the tests over the fake runtime
configure() {
  local name=$1; shift
  cmake -S . -B "$out/$name" -G Ninja -DL5KOV_BUILD_TOOLS=OFF -DL5KOV_BUILD_BENCH=OFF \
    "-DL5KOV_TEST_FOLDERS=$fake" -DJAVA_HOME="$JAVA_HOME" "$@" >"$out/$name.configure.log" 2>&1 ||
    { cat "$out/$name.configure.log" >&2; exit 1; }
}
build() { cmake --build "$out/$1" -j "$jobs" >"$out/$1.build.log" 2>&1 ||
  { tail -40 "$out/$1.build.log" >&2; exit 1; }; }
plain() { configure plain -DCMAKE_BUILD_TYPE=RelWithDebInfo; build plain; }
tests() { ctest --test-dir "$out/$1" -j "$jobs" --no-tests=error --output-on-failure -R "$2"; }
vendors() { echo "$out/$1/tests/support/vendor"; }

run_part() {
  case "$1" in
    calls) plain; LD_LIBRARY_PATH=$(vendors plain) "$out/plain/bin/reliability_every_call_fails" ;;
    allocations)
      plain; LD_LIBRARY_PATH=$(vendors plain) "$out/plain/bin/reliability_every_allocation_fails" ;;
    race) plain; tests plain '^Race\.' ;;
    hardening) plain; tests plain '^reliability_(hardening|set_user_id)$' ;;
    faults) plain; tests plain '^(BrokenInstallation|CurrentFolder|CarelessPlugin|NameTable|StartUpFailure|DelegateException)\.' ;;
    sanitize)
      configure sanitize -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-O1 \
        -DL5KOV_SANITIZE=address,undefined -DL5KOV_BUILD_SIMULATOR=OFF
      build sanitize
      ASAN_OPTIONS=detect_leaks=1 tests sanitize . ;;
    threads)
      configure threads -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS=-O1 -DL5KOV_SANITIZE=thread \
        -DL5KOV_BUILD_SIMULATOR=OFF
      build threads
      tests threads '^(Race|Threads|HandleOnThreads|HandleOfTheFirstThread|Cancel|StartUp|DeleteJavaVm|JavaExceptionTest)\.' ;;
    valgrind)
      plain
      LD_LIBRARY_PATH=$(vendors plain) valgrind --error-exitcode=9 --leak-check=full \
        --show-leak-kinds=definite --errors-for-leak-kinds=definite \
        "$out/plain/bin/reliability_every_call_fails" --gtest_filter='*LookUps*' ;;
    fuzz)
      plain
      fuzz/build.sh "$out/fuzz"
      L5KOV_BUILD=$out/plain fuzz/build.sh "$out/fuzz" target_object
      fuzz/run.sh "$out/fuzz" "${FUZZ_SECONDS:-60}" ;;
    long)
      plain; cmake --build "$out/plain" --target reliability_long_run -j "$jobs" >/dev/null
      # shellcheck disable=SC2086
      L5KOV_COMMON_APPDATA=$out/plain/tests/reliability/appdata LD_LIBRARY_PATH=$out/plain/simulator \
        "$out/plain/bin/reliability_long_run" ${LONG_RUN:-10000000 20000 1000} ;;
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
      tests coverage . >"$out/coverage.tests.txt"
      gcovr --root . --object-directory "$out/coverage" --exclude-throw-branches \
        --exclude-unreachable-branches --filter 'pocketjson/' --filter 'java/' --filter 'monitor/' \
        --filter 'calibration/' --filter 'platform/' --filter 'include/'
      gcovr --root . --object-directory "$out/coverage" --exclude-throw-branches \
        --exclude-unreachable-branches --branches --filter 'pocketjson/' --filter 'java/' \
        --filter 'monitor/' --filter 'calibration/' --filter 'platform/' --filter 'include/' ;;
    *) echo "no such part: $1" >&2; exit 2 ;;
  esac
}

[ $# -gt 0 ] || { sed -n '3,10p' "$0" >&2; exit 2; }
parts=()
for part in "$@"; do
  case "$part" in
    quick) parts+=(calls allocations race hardening faults) ;;
    all) parts+=(calls allocations race hardening faults sanitize threads valgrind fuzz long mutate
                 coverage) ;;
    *) parts+=("$part") ;;
  esac
done
for part in "${parts[@]}"; do
  echo "== $part"
  (set -e; run_part "$part") 2>&1 | tee "$out/$part.txt"
done
