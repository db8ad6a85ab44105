#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the fuzz targets with libFuzzer, AddressSanitizer and UndefinedBehaviorSanitizer.
#   fuzz/build.sh FOLDER [TARGET...]
# Debian packages: clang-14 libclang-rt-14-dev libtinyxml2-dev.
# target_object runs over the fake Java runtime, which comes from a build of the project:
#   L5KOV_BUILD=FOLDER (with fake_jvm and l5kov_test_support built)
set -euo pipefail
out=$(realpath -m "$1"); shift
cd "$(dirname "$0")/.."
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(scalar_text value_program name_table paths)
compiler=${CXX:-clang++-14}
flags=(-std=c++20 -O1 -g -I. -Iinclude -fno-sanitize-recover=all -fsanitize=address,undefined
       -DL5KOV_BUILDING)
mkdir -p "$out"

build() {
  name=$1; shift
  "$compiler" "${flags[@]}" -fsanitize=fuzzer "fuzz/$name.cpp" "$@" -o "$out/$name"
}
json=(pocketjson/convert.cpp pocketjson/index.cpp pocketjson/key_order.cpp pocketjson/release.cpp
      pocketjson/scalar_text.cpp pocketjson/value.cpp)
platform=(platform/posix/file.cpp platform/posix/folders.cpp platform/posix/native_path.cpp
          platform/posix/runtime_library.cpp)

for target in "${targets[@]}"; do
  case "$target" in
    scalar_text | value_program) build "$target" "${json[@]}" ;;
    name_table) build "$target" monitor/name_table.cpp java/plugin_paths.cpp "${platform[@]}" -ltinyxml2 ;;
    paths) build "$target" java/plugin_paths.cpp java/utf8.cpp "${platform[@]}" ;;
    target_object)
      # The library is the shipped one: what it does is seen through the fake runtime, not through
      # its own branches.
      "$compiler" -std=c++20 -O1 -g -I. -Iinclude -I"${JAVA_HOME:?}/include" \
        -I"$JAVA_HOME/include/linux" -fsanitize=fuzzer fuzz/target_object.cpp \
        tests/reliability/flow.cpp -Wl,--no-as-needed \
        "${L5KOV_BUILD:?}/tests/support/libl5kov_test_support.a" \
        -L"$L5KOV_BUILD/tests/support/vendor" -lmeter_x64 -lchroma_x64 -L"$L5KOV_BUILD/lib" -ll5kov \
        -lgtest -ldl -Wl,-rpath,"$L5KOV_BUILD/lib" \
        -Wl,-rpath,"$L5KOV_BUILD/tests/support/vendor" -o "$out/$target" ;;
    *) echo "no such target: $target" >&2; exit 2 ;;
  esac
done
