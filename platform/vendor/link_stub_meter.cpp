// SPDX-License-Identifier: MIT
// What the linker needs to know of libmeter_x64. Never installed and never run: at run time the
// library of that name beside the host is loaded.
#include "platform/vendor.h"

extern "C" {
__attribute__((visibility("default"))) std::uint32_t MDGetDeviceID(void*) { return 0; }
__attribute__((visibility("default"))) const char* MDGetSerialNumber(void*) { return nullptr; }
}
