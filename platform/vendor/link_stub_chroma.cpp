// SPDX-License-Identifier: MIT
// What the linker needs to know of libchroma_x64. Never installed and never run: at run time the
// library of that name beside the host is loaded.
#include "platform/vendor.h"

extern "C" {
__attribute__((visibility("default"))) int Colour_tmp2xy(void*, const void*) { return -1; }
}
