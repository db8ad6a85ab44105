#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that are missing.
#   install-packages.sh build|test|windows|all|bench
# test, windows and bench include build; all includes test and windows.
# Does nothing, and needs no privileges, where everything is there.
set -euo pipefail

build=(ca-certificates cmake g++ ninja-build openjdk-17-jdk-headless libtinyxml2-dev liblcms2-dev
       libcli11-dev libfmt-dev nlohmann-json3-dev)
test=(libgtest-dev libgmock-dev dcmtk python3 python3-jsonschema argyll
      argyll-ref procps)
all=(chromium poppler-utils fonts-dejavu-core xvfb libsdl2-dev valgrind man-db zsh fish
     clang-14 libclang-rt-14-dev gcovr)
# What the cross-build for Windows and its tests under Wine need.
windows=(g++-mingw-w64-x86-64-posix wine64 googletest dpkg-dev python3 python3-jsonschema
         python3-pip unzip zip clang-14 zsh fish man-db)
# Wanted only where the command of that name is missing: another packaging of it may be there.
all_commands=(npm)

bench=(libbenchmark-dev rapidjson-dev libboost-json1.81-dev binutils linux-perf python3)

case "${1:-}" in
  build) wanted=("${build[@]}") ;;
  test) wanted=("${build[@]}" "${test[@]}") ;;
  windows) wanted=("${build[@]}" "${windows[@]}") ;;
  all)
    wanted=("${build[@]}" "${test[@]}" "${windows[@]}" "${all[@]}")
    for command in "${all_commands[@]}"; do
      command -v "$command" >/dev/null || wanted+=("$command")
    done
    python3 -m pip --version >/dev/null 2>&1 || wanted+=(python3-pip)
    ;;
  bench) wanted=("${build[@]}" "${bench[@]}") ;;
  *) echo "usage: $0 build|test|windows|all|bench" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Install them as root: apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
# A minimal root lacks this folder, and the Java packages' scripts stop without it.
"${as_root[@]}" mkdir -p /usr/share/man/man1
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
