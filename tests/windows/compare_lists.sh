#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares two builds' lists of tests, and what the second has skipped:
#   compare_lists.sh LINUX-BUILD WINDOWS-BUILD WINDOWS-RESULTS   (what ctest --output-junit writes)
# A test of one list only, and one that was skipped, needs a line in missing_tests.txt that says
# why; a line that nothing needs any more is an error, too.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Runtimes of other versions are other runtimes of the same tests; parameters may print otherwise.
same_names() { sed -E 's/^real\.jdk[0-9]+\./real.jdk./; s/ +# GetParam.*//' | sort -u; }
list() { ctest --test-dir "$1" -N | sed -nE 's/^ *Test +#[0-9]+: (.*)$/\1/p' | same_names; }
# Also what else did not run: ctest has failed then, and here no reason excuses it.
skipped() {
  python3 - "$1" <<'END'
import sys
import xml.etree.ElementTree as tree
for case in tree.parse(sys.argv[1]).iter('testcase'):
    if case.find('skipped') is not None or case.get('status') not in ('run', 'fail'):
        print(case.get('name'))
END
}
list "$1" >"$work/linux"
list "$2" >"$work/windows"
skipped "$3" | same_names >"$work/skipped"
grep -vE '^#|^$' "$here/missing_tests.txt" >"$work/known" || true

status=0
check() {  # L, W or S, what is the matter, file with the names
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
      echo "$2, without a reason: $name"
      status=1
    fi
  done <"$3"
}
touch "$work/used"
comm -23 "$work/linux" "$work/windows" >"$work/only-linux"
comm -13 "$work/linux" "$work/windows" >"$work/only-windows"
check L "only on Linux" "$work/only-linux"
check W "only on Windows" "$work/only-windows"
check S "skipped" "$work/skipped"
while IFS=$'\t' read -r side pattern reason; do
  if ! grep -qxF "$side	$pattern" "$work/used"; then
    echo "missing_tests.txt: nothing needs \"$pattern\""
    status=1
  fi
done <"$work/known"
comm -12 "$work/linux" "$work/windows" | comm -23 - "$work/skipped" >"$work/both"
echo "$(wc -l <"$work/linux") tests on Linux, $(wc -l <"$work/windows") on Windows," \
  "$(wc -l <"$work/both") run on both, $(wc -l <"$work/skipped") skipped on Windows:"
sed 's/^/  /' "$work/skipped"
exit "$status"
