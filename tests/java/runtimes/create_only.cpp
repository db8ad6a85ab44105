// SPDX-License-Identifier: MIT
// A Java runtime without a way to ask for running virtual machines, which refuses to create one and
// counts how often it was asked.
#include <jni.h>

namespace {
int asked = 0;
}

extern "C" {

JNIEXPORT jint JNICALL JNI_CreateJavaVM(JavaVM**, void**, void*) {
  ++asked;
  return JNI_EVERSION;
}

JNIEXPORT int timesAsked() { return asked; }
}
