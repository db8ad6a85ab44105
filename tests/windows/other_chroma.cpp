// SPDX-License-Identifier: MIT
// A colour library of another maker: says what it is asked, and answers nothing.
#include <cstdio>

extern "C" int Colour_tmp2xy(void*, const void*) {
  std::puts("other maker: Colour_tmp2xy");
  std::fflush(stdout);
  return 0;
}
