#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a Windows program under Wine: wine.sh PROGRAM ARGUMENTS...
#
# The prefix (L5KOV_WINEPREFIX, default build/wine-prefix) is made on first use. In it the shell takes
# the common application-data folder from the variable L5KOV_COMMON_APPDATA, so that a test is told
# its folder as on other systems, and tests can run side by side; default C:\ProgramData. This is a
# setting of the prefix: the library asks the shell and knows no variable. XDG_STATE_HOME likewise
# is the user's folder. Drive Y: is a test's own.
#
# DLLs are found in the folders of PATH and LD_LIBRARY_PATH that hold some, then where the build tree
# has those that the program was linked with (dll_folders.cmake).
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)

# Wine starts a program of this system detached, and ends with 0 at once: no test may pass so.
if [ -f "${1:-}" ] && [ "$(head -c 2 "$1" | tr -d '\0')" != MZ ]; then
  echo "$1 is no program for Windows" >&2
  exit 2
fi

# Any other locale may tell Wine another ANSI code page than 1252.
export LC_ALL=C.UTF-8
. "$root/tests/windows/wineserver.sh"
export WINEDEBUG=${WINEDEBUG:--all}
# No .NET, no web engine: without this Wine offers to install them.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
wine=$(PATH=/usr/lib/wine:$PATH command -v wine64)
folders='Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders'

windows_path() {
  case $1 in
    /*) printf 'Z:%s' "${1//\//\\}" ;;
    *) printf %s "$1" ;;
  esac
}

tell_folder() { "$wine" reg add "$1\\$folders" /v "$2" /t REG_EXPAND_SZ /d "$3" /f; }

ready=$WINEPREFIX/ready-3
make_prefix() {
  mkdir -p "$WINEPREFIX"
  touch "$WINEPREFIX/of-l5kov-tests"
  "$wine" wineboot -i
  tell_folder HKLM 'Common AppData' '%L5KOV_COMMON_APPDATA%'
  tell_folder HKCU 'Local AppData' '%L5KOV_LOCAL_APPDATA%'
  mkdir -p "$WINEPREFIX/drive_y"
  ln -sfn ../drive_y "$WINEPREFIX/dosdevices/y:"
  touch "$ready"
}

if [ ! -e "$ready" ]; then
  mkdir -p "$(dirname "$WINEPREFIX")"
  exec 9>"$WINEPREFIX.lock"
  flock 9
  [ -e "$ready" ] || make_prefix >"$WINEPREFIX.log" 2>&1 9>&-
  exec 9>&-
fi

dll_folders=
while IFS= read -r -d : folder; do
  if compgen -G "$folder/*.dll" >/dev/null; then dll_folders+="$(windows_path "$folder");"; fi
done <<<"$PATH:${LD_LIBRARY_PATH:-}:"
if [ -e "${1:-}.dlls" ]; then
  while IFS= read -r dll; do
    [ -z "$dll" ] || dll_folders+="$(windows_path "${dll%/*}");"
  done <"$1.dlls"
fi
export WINEPATH=$dll_folders${WINEPATH:-}

L5KOV_COMMON_APPDATA=$(windows_path "${L5KOV_COMMON_APPDATA:-C:\\ProgramData}")
L5KOV_LOCAL_APPDATA=$(windows_path "${XDG_STATE_HOME:-C:\\users\\Public}")
export L5KOV_COMMON_APPDATA L5KOV_LOCAL_APPDATA
[ -z "${XDG_STATE_HOME:-}" ] || [ -e "$XDG_STATE_HOME" ] || mkdir -p "$XDG_STATE_HOME"

# Through files: the first program of a prefix starts Wine's services, which would hold a pipe open
# long after the program's end.
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT
status=0
"$wine" "$@" >"$output/out" 2>"$output/err" || status=$?
cat "$output/out"
cat "$output/err" >&2
exit "$status"
