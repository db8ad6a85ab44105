// SPDX-License-Identifier: MIT
// A Java runtime that knows of no virtual machine and cannot create one.
#include <jni.h>

extern "C" JNIEXPORT jint JNICALL JNI_GetCreatedJavaVMs(JavaVM**, jsize, jsize* count) {
  *count = 0;
  return JNI_OK;
}
