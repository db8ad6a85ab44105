// SPDX-License-Identifier: MIT
// What the runtime-library tests load for a Java runtime that is in the process already.

#include <stdlib.h>

// Says that it was loaded, if for a moment only.
__attribute__((constructor)) static void tellThatItWasLoaded() {
  ::setenv("L5KOV_TEST_RUNTIME_WAS_LOADED", "1", 1);
}

// How many virtual machines it runs; the tests set it.
extern "C" __attribute__((visibility("default"))) int runningMachines;
int runningMachines = 0;

extern "C" __attribute__((visibility("default"))) int JNI_GetCreatedJavaVMs(void** machines,
                                                                            int room, int* count) {
  if (room > 0 && runningMachines > 0) machines[0] = &runningMachines;
  *count = runningMachines;
  return 0;
}
