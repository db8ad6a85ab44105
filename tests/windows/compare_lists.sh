#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares two builds' lists of tests: compare_lists.sh LINUX-BUILD WINDOWS-BUILD
# A test of one list only needs a line in missing_tests.txt that says why; a line that nothing needs
# any more is an error, too.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Runtimes of other versions are other runtimes of the same tests; parameters may print otherwise.
list() {
  ctest --test-dir "$1" -N | sed -nE 's/^ *Test +#[0-9]+: (.*)$/\1/p' |
    sed -E 's/^real\.jdk[0-9]+\./real.jdk./; s/ +# GetParam.*//' | sort -u
}
list "$1" >"$work/linux"
list "$2" >"$work/windows"
grep -vE '^#|^$' "$here/missing_tests.txt" >"$work/known" || true

status=0
check() {  # L or W, file with the names
  local side=$1 name line pattern reason found
  while IFS= read -r name; do
    found=no
    while IFS=$'\t' read -r line pattern reason; do
      if [ "$line" = "$side" ] && [ -n "$reason" ] && [[ $name =~ ^($pattern)$ ]]; then
        found=yes
        echo "$side	$pattern" >>"$work/used"
      fi
    done <"$work/known"
    if [ "$found" = no ]; then
      echo "only on $([ "$side" = L ] && echo Linux || echo Windows), without a reason: $name"
      status=1
    fi
  done <"$2"
}
touch "$work/used"
comm -23 "$work/linux" "$work/windows" >"$work/only-linux"
comm -13 "$work/linux" "$work/windows" >"$work/only-windows"
check L "$work/only-linux"
check W "$work/only-windows"
while IFS=$'\t' read -r side pattern reason; do
  if ! grep -qxF "$side	$pattern" "$work/used"; then
    echo "missing_tests.txt: nothing needs \"$pattern\""
    status=1
  fi
done <"$work/known"
echo "$(wc -l <"$work/linux") tests on Linux, $(wc -l <"$work/windows") on Windows," \
  "$(comm -12 "$work/linux" "$work/windows" | wc -l) on both"
exit "$status"
