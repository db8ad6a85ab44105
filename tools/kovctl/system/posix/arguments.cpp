// SPDX-License-Identifier: MIT
#include "system/arguments.h"

namespace kovctl::sys {

// The bytes as they are: file names need not be UTF-8 here.
std::vector<std::string> commandLineArguments(int count, const char* const* given) {
  return {given, given + count};
}

}  // namespace kovctl::sys
