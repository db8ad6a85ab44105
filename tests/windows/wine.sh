#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a Windows program under Wine: wine.sh PROGRAM ARGUMENTS...
#
# The prefix (WINEPREFIX, default build/wine-prefix) is made on first use. In it the shell's common
# application-data folder is taken from the variable L5KOV_TEST_APPDATA, so that tests have one each
# and can run side by side; default C:\ProgramData. Folders of the Unix PATH that lie in a build
# tree are where DLLs are found.
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
export WINEPREFIX=${WINEPREFIX:-$root/build/wine-prefix}
export WINEDEBUG=${WINEDEBUG:--all}
export L5KOV_TEST_APPDATA=${L5KOV_TEST_APPDATA:-C:\\ProgramData}
wine=$(PATH=/usr/lib/wine:$PATH command -v wine64)
key='HKLM\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders'

make_prefix() {
  mkdir -p "$WINEPREFIX"
  # No display, no web engine, no .NET: without this Wine asks for them.
  export WINEDLLOVERRIDES="mscoree,mshtml=;$(printf %s "${WINEDLLOVERRIDES:-}")"
  "$wine" wineboot -i
  "$wine" reg add "$key" /v 'Common AppData' /t REG_EXPAND_SZ /d '%L5KOV_TEST_APPDATA%' /f
  touch "$WINEPREFIX/ready"
}

if [ ! -e "$WINEPREFIX/ready" ]; then
  mkdir -p "$(dirname "$WINEPREFIX")"
  exec 9>"$WINEPREFIX.lock"
  flock 9
  [ -e "$WINEPREFIX/ready" ] || make_prefix >"$WINEPREFIX.log" 2>&1 9>&-
  exec 9>&-
fi

dll_folders=
while IFS= read -r -d : folder; do
  case $folder in
    */build/* | /tmp/*) dll_folders+="Z:${folder//\//\\};" ;;
  esac
done <<<"$PATH:"
export WINEPATH=$dll_folders${WINEPATH:-}
exec "$wine" "$@"
