#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, cross-builds for Windows, runs the tests under Wine (over the fake Java
# runtime and over real ones) and, when all have run, compares the list of tests with that of a build
# for this system.
#   tests/windows/run.sh [LINUX-BUILD] [ctest arguments]     (default of LINUX-BUILD: build/test)
# L5KOV_WINEPREFIX: default build/wine-prefix; made on first use. To be run by one at a time.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root"
native=${1:-build/test}
[ $# -eq 0 ] || shift
build=build/windows-cross
jobs=${jobs:-$(nproc)}

if [ ! -e "$native/CTestTestfile.cmake" ]; then
  echo "$native is no build to compare the list of tests with (./test makes build/test)" >&2
  exit 2
fi

mkdir -p build
cmake/toolchains/windows-dependencies.sh "$root/build/windows-sysroot"

. tests/windows/wineserver.sh
start_wineserver
trap stop_wineserver EXIT
tests/windows/wine.sh cmd /c exit
rm -rf "$WINEPREFIX"/drive_c/users/*/Temp/*

launcher=$(command -v ccache || true)
cmake --preset windows-cross -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" \
  >"$build.configure.log" 2>&1 || { cat "$build.configure.log" >&2; exit 1; }
cmake --build "$build" -j "$jobs"

# Programs of this system that an independent oracle needs are not asked for under Wine.
unset L5KOV_TEST_ALL
status=0
ctest --test-dir "$build" -j "$jobs" --output-on-failure --no-tests=error \
  --output-junit results.xml --test-output-size-passed 100000 "$@" || status=1
if [ $# -eq 0 ]; then
  tests/windows/compare_lists.py "$native" "$build" "$build/results.xml" || status=1
fi
exit "$status"
