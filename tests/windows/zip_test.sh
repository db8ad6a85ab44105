#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The ZIP for Windows users: what is in it, that one command calibrates a simulated monitor in an
# empty Wine prefix, and that it serves a foreign project.
#   zip_test.sh BUILD WORK JAVA...     (Windows Java runtimes; all commands run with each)
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2
shift 2

fail() {
  echo "$1" >&2
  exit 1
}
expect() {  # text, file
  grep -qF -- "$1" "$2" || { cat "$2" >&2; fail "\"$1\" is missing"; }
}

mkdir -p "$work/prefix"
# Nothing of the other tests' prefix: here the shell has its own folder, C:\ProgramData.
root=$(cd "$here/../.." && pwd)
L5KOV_WINEPREFIX=$work/prefix
. "$here/wineserver.sh"
export WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= JAVA_HOME='C:\java\'
unset L5KOV_COMMON_APPDATA
# A run that was ended has left its server behind, which is known by the folder's own number.
stop_wineserver
rm -rf "$work"
mkdir -p "$work/prefix" "$work/unpacked"
trap stop_wineserver EXIT
start_wineserver
wine=$(PATH=/usr/lib/wine:$PATH command -v wine64)
"$wine" wineboot -i >"$work/wineboot.log" 2>&1
c=$WINEPREFIX/drive_c

# What cpack makes.
(cd "$build" && cpack -B "$work/zip" >"$work/cpack.log" 2>&1) || fail "$(cat "$work/cpack.log")"
zip=$(echo "$work"/zip/l5kov-*-windows-x64.zip)
unzip -q "$zip" -d "$work/unpacked"
mv "$work"/unpacked/* "$c/l5kov"
(cd "$c/l5kov" && find . -type f | LC_ALL=C sort) >"$work/files.txt"
for file in bin/libl5kov.dll bin/kovctl.exe bin/kovctl-main.dll lib/libl5kov.dll.a include/l5kov.h \
    lib/cmake/l5kov/l5kovConfig.cmake simulator/KOVLibrary.jar simulator/kovpanel.dll \
    share/licences/tinyxml2.txt simulate.cmd README.txt LICENSE.txt; do
  expect "./$file" "$work/files.txt"
done
[ "$(wc -l <"$c/l5kov/README.txt")" = 10 ] || fail "README.txt does not have ten lines"

simulate() {  # log, expected exit code, arguments
  local log=$work/$1.log expected=$2 status=0
  shift 2
  "$wine" cmd /c 'C:\l5kov\simulate.cmd' "$@" >"$log" 2>&1 || status=$?
  [ "$status" = "$expected" ] || { cat "$log" >&2; fail "simulate.cmd $* ended with $status"; }
}

simulate nojava 1
expect "JAVA_HOME does not name a Java runtime" "$work/nojava.log"

# One command, and then others.
for java in "$@"; do
  version=$(basename "$java")
  rm -rf "$c/java" "$c/ProgramData/ORVA"
  cp -r "$java" "$c/java"
  simulate "$version-calibrate" 0
  expect "Calibrating OR-C321:30210045" "$work/$version-calibrate.log"
  expect "This run was simulated." "$work/$version-calibrate.log"
  report=$(find "$c/users" -name l5kov-report.html -size +10k)
  [ -n "$report" ] || fail "there is no report"
  rm "$report"
  simulate "$version-list" 0 list
  expect "OR-C190" "$work/$version-list.log"
  simulate "$version-doctor" 0 doctor
  expect "checks, 0 failed" "$work/$version-doctor.log"
done

# An argument beyond the ANSI code page arrives as it is.
mkdir "$c/Prüfung デ"
LC_ALL=C.UTF-8 simulate accented 0 calibrate -m OR-C321 --ambient 0.1 \
  --report 'C:\Prüfung デ\ré.html'
[ -s "$c/Prüfung デ/ré.html" ] || fail "there is no report of that name: $(ls "$c/Prüfung デ")"

# The maker's own installation is left alone.
rm "$c/ProgramData/ORVA/Lumora5/simulation.txt"
simulate foreign 1 list
expect "not of this program's making" "$work/foreign.log"

# A foreign project over the same tree, without plug-ins.
cmake -S "$here/../package/consumer" -B "$work/consumer" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_CXX_COMPILER=x86_64-w64-mingw32-g++-posix \
  -DCMAKE_EXE_LINKER_FLAGS=-static -DCMAKE_PREFIX_PATH="$c/l5kov" >"$work/consumer.log" 2>&1 ||
  fail "$(cat "$work/consumer.log")"
cmake -S "$here/../package/consumer" -B "$work/msvc" -G Ninja -DMSVC=ON \
  -DCMAKE_PREFIX_PATH="$c/l5kov" >"$work/msvc.log" 2>&1 && fail "it serves MSVC"
expect "built by mingw-w64 and does not serve MSVC" "$work/msvc.log"
cmake --build "$work/consumer" >"$work/consumer.log" 2>&1 || fail "$(cat "$work/consumer.log")"
rm -r "$c/ProgramData/ORVA"
WINEPATH='C:\l5kov\bin;C:\l5kov\simulator' "$wine" "$work/consumer/host.exe" \
  >"$work/host.log" 2>&1 || fail "$(cat "$work/host.log")"
expect "250.5 cd/m2, Failed to create Java VM" "$work/host.log"
