#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what is missing, cross-builds for Windows, runs the tests under Wine and compares the list
# of tests with that of a build for this system.
#   tests/windows/run.sh [LINUX-BUILD] [ctest arguments]     (default of LINUX-BUILD: build/test)
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root"
native=${1:-build/test}
[ $# -eq 0 ] || shift
build=build/windows-cross
jobs=${jobs:-$(nproc)}
export WINEPREFIX=${WINEPREFIX:-$root/build/wine-prefix}

mkdir -p build
cmake/toolchains/windows-dependencies.sh "$root/build/windows-sysroot"
cmake --preset windows-cross >"$build.configure.log" 2>&1 ||
  { cat "$build.configure.log" >&2; exit 1; }
cmake --build "$build" -j "$jobs"

# A loaded machine makes Wine slow; a test that hangs still ends.
status=0
ctest --test-dir "$build" -j "$jobs" --output-on-failure --no-tests=error --timeout 300 "$@" ||
  status=$?
if [ -e "$native/CTestTestfile.cmake" ]; then
  tests/windows/compare_lists.sh "$native" "$build" || status=$?
fi
PATH=/usr/lib/wine:$PATH wineserver -k 2>/dev/null || /usr/lib/wine/wineserver64 -k || true
exit "$status"
