# SPDX-License-Identifier: MIT
# To be sourced, with root set to the source tree: the tests' own Wine prefix, and one Wine server
# for all programs of it. To start it, and Windows' services with it, takes seconds; programs
# afterwards start in a tenth of one.
# Never WINEPREFIX, which a developer may have set; and a prefix that L5KOV_WINEPREFIX names has to
# be one that these tests have made.
export WINEPREFIX=${L5KOV_WINEPREFIX:-$root/build/wine-prefix}
if [ -n "${L5KOV_WINEPREFIX:-}" ] && [ -e "$WINEPREFIX/drive_c" ] &&
  [ ! -e "$WINEPREFIX/of-l5kov-tests" ]; then
  echo "$WINEPREFIX was not made by these tests and is left alone" >&2
  exit 2
fi

wineserver() {
  local program=/usr/lib/wine/wineserver64
  [ -x "$program" ] || program=$(command -v wineserver)
  "$program" "$@"
}

stop_wineserver() { wineserver -k >/dev/null 2>&1 || true; }

start_wineserver() {
  mkdir -p "$WINEPREFIX"
  touch "$WINEPREFIX/of-l5kov-tests"
  stop_wineserver
  wineserver -w
  wineserver -p >/dev/null 2>&1
}
