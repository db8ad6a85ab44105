// SPDX-License-Identifier: MIT
// Prints the application-data folder that a program with these rights uses.
#include <cstdio>

#include "platform/platform.h"

int main() {
  std::puts(lumora::platform::commonAppDataFolder().c_str());
}
