// SPDX-License-Identifier: MIT
#ifndef L5KOV_LUMORA_KOV_JAVA_JNI_NAMES_H_
#define L5KOV_LUMORA_KOV_JAVA_JNI_NAMES_H_

// The JNI names that the public headers mention, declared as jni.h declares them for C++, so that a
// host may include both in either order and needs no JDK when it includes only these.

class _jobject;
class _jthrowable;
class _jstring;
class _jdoubleArray;
struct JNIEnv_;
struct JavaVM_;

typedef _jobject* jobject;
typedef _jthrowable* jthrowable;
typedef _jstring* jstring;
typedef _jdoubleArray* jdoubleArray;
typedef JNIEnv_ JNIEnv;
typedef JavaVM_ JavaVM;

#endif  // L5KOV_LUMORA_KOV_JAVA_JNI_NAMES_H_
