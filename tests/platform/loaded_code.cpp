// SPDX-License-Identifier: MIT
// Code that the runtime-library tests load and go on calling after giving it back.

extern "C" __attribute__((visibility("default"))) int answer() {
  static int calls = 0;
  return 41 + ++calls;
}
