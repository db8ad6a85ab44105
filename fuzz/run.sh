#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the fuzz targets of a folder, one after the other, and keeps what they say.
#   fuzz/run.sh FOLDER [SECONDS] [TARGET...]
# New inputs go to FOLDER/corpus; a crash is left in FOLDER as TARGET-crash-... and fails the run.
set -euo pipefail
folder=$(realpath "$1"); seconds=${2:-60}; shift; shift || true
here=$(cd "$(dirname "$0")" && pwd)
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for target in "$here"/corpus/*; do targets+=("$(basename "$target")"); done
fi
for target in "${targets[@]}"; do
  mkdir -p "$folder/corpus/$target"
  log=$folder/$target.log
  more=()
  [ ! -e "$here/dictionaries/$target.dict" ] || more=("-dict=$here/dictionaries/$target.dict")
  [ ! -e "$here/options/$target" ] || mapfile -t -O "${#more[@]}" more < <(grep -v '^#' \
    "$here/options/$target")
  (cd "$folder" && "./$target" -max_total_time="$seconds" -max_len=4096 -timeout=60 \
    -rss_limit_mb=4096 -print_final_stats=1 -artifact_prefix="$folder/$target-" "${more[@]}" \
    "corpus/$target" "$here/corpus/$target") >"$log" 2>&1 || {
    tail -40 "$log" >&2; echo "$target: failed" >&2; exit 1; }
  echo "$target: $(grep -o 'stat::number_of_executed_units:.*' "$log" | grep -o '[0-9]*$') inputs" \
    "in $(sed -n 's/^Done .* in \([0-9]*\) second.*/\1/p' "$log") s," \
    "$(grep -Eo 'cov: [0-9]+' "$log" | tail -1)"
done
