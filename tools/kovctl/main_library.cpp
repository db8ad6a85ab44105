// SPDX-License-Identifier: MIT
#include "main_library.h"

#include "cli/program.h"
#include "system/streams.h"

int kovctlMain(int count, const char* const* arguments) {
  // Here and not in the program: each of the two has a copy of what this prepares.
  kovctl::sys::prepareStandardStreams();
  return kovctl::runProgram(count, arguments);
}
