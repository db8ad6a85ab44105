// SPDX-License-Identifier: MIT
// A measurement-device library of another maker: says what it is asked.
#include <cstdint>
#include <cstdio>

extern "C" {

std::uint32_t MDGetDeviceID(void*) {
  std::puts("other maker: MDGetDeviceID");
  return 163;
}

const char* MDGetSerialNumber(void*) {
  std::puts("other maker: MDGetSerialNumber");
  std::fflush(stdout);
  return "OTHER-1";
}
}
