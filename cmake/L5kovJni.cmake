# SPDX-License-Identifier: MIT
# l5kov_jni: the JDK's headers. Nothing links the Java runtime; it is loaded at run time.
find_path(L5KOV_JNI_INCLUDE_DIR jni.h
  HINTS ENV JAVA_HOME
  PATHS /usr/lib/jvm/java-17-openjdk-amd64 /usr/lib/jvm/default-java
  PATH_SUFFIXES include
  DOC "Folder of jni.h")
find_path(L5KOV_JNI_MD_INCLUDE_DIR jni_md.h
  PATHS ${L5KOV_JNI_INCLUDE_DIR} PATH_SUFFIXES linux win32 darwin
  NO_DEFAULT_PATH
  DOC "Folder of jni_md.h of the target system")
if(NOT L5KOV_JNI_INCLUDE_DIR OR NOT L5KOV_JNI_MD_INCLUDE_DIR)
  message(FATAL_ERROR "jni.h not found: install a JDK (Debian: openjdk-17-jdk-headless) "
                      "or set L5KOV_JNI_INCLUDE_DIR and L5KOV_JNI_MD_INCLUDE_DIR")
endif()
add_library(l5kov_jni INTERFACE)
target_include_directories(l5kov_jni SYSTEM INTERFACE
  ${L5KOV_JNI_INCLUDE_DIR} ${L5KOV_JNI_MD_INCLUDE_DIR})
