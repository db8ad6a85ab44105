// SPDX-License-Identifier: MIT
#ifndef L5KOV_FUZZ_REQUIRE_H_
#define L5KOV_FUZZ_REQUIRE_H_

#include <cstdio>
#include <cstdlib>

// Stops the program, so that the fuzzer keeps the input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

#endif  // L5KOV_FUZZ_REQUIRE_H_
