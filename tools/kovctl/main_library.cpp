// SPDX-License-Identifier: MIT
#include "main_library.h"

#include "cli/program.h"

int kovctlMain(int count, const char* const* arguments) {
  return kovctl::runProgram(count, arguments);
}
