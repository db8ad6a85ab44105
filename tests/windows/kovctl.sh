#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs the build's kovctl.exe under Wine, for the drivers in tests/kovctl: kovctl.sh ARGUMENTS...
#   KOVCTL_EXE            the program
#   L5KOV_COMMON_APPDATA  its plug-ins; Java 17 needs the runtime's bin on the search path
set -euo pipefail
LD_LIBRARY_PATH=$KOVCTL_SIMULATOR_DIR:$KOVCTL_JAVA_HOME/bin
export LD_LIBRARY_PATH
exec "$(dirname "$0")/wine.sh" "$KOVCTL_EXE" "$@"
