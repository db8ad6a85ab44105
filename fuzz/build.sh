#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the fuzz targets with libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer.
#   fuzz/build.sh FOLDER [TARGET...]    programs: FOLDER/TARGET; what they are made of: FOLDER/build
# Debian packages beside those of the build: clang-14 libclang-rt-14-dev.
set -euo pipefail
mkdir -p "$1"
out=$(realpath "$1"); shift
cd "$(dirname "$0")/.."
. tools/setup/environment.sh
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for target in fuzz/corpus/*; do targets+=("$(basename "$target")"); done
fi
launcher=()
if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
cmake -S . -B "$out/build" -G Ninja -DCMAKE_CXX_COMPILER="${CXX:-clang++-14}" \
  -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=-O1" "${launcher[@]}" \
  -DL5KOV_FUZZ=ON -DL5KOV_SANITIZE=address,undefined,fuzzer-no-link -DL5KOV_BUILD_SIMULATOR=OFF \
  "-DL5KOV_TEST_FOLDERS=fake_jvm;support" -DJAVA_HOME="$JAVA_HOME" >"$out/configure.log" 2>&1 ||
  { cat "$out/configure.log" >&2; exit 1; }
cmake --build "$out/build" -j "$jobs" --target "${targets[@]/#/fuzz_}"
for target in "${targets[@]}"; do ln -f "$out/build/fuzz/$target" "$out/$target"; done
