# SPDX-License-Identifier: MIT
# Windows x64 by mingw-w64, posix threads, with the standard library linked in. What the target
# lacks on the building system (tinyxml2, GoogleTest, the Java headers) comes from the folder that
# cmake/toolchains/windows-dependencies.sh fills.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(L5KOV_WINDOWS_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/windows-sysroot CACHE PATH
  "Folder that windows-dependencies.sh filled")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES L5KOV_WINDOWS_SYSROOT)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# GCC 12 sees overlapping copies in "literal" + std::string at -O3, where there are none (GCC bug
# 105651).
set(CMAKE_CXX_FLAGS_INIT "-Wno-restrict")

# Nothing but what Windows itself brings has to lie beside the library or a program.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()

set(CMAKE_FIND_ROOT_PATH ${L5KOV_WINDOWS_SYSROOT} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(L5KOV_JNI_INCLUDE_DIR ${L5KOV_WINDOWS_SYSROOT}/jni CACHE PATH "Folder of jni.h")
set(L5KOV_JNI_MD_INCLUDE_DIR ${L5KOV_WINDOWS_SYSROOT}/jni/win32 CACHE PATH "Folder of jni_md.h")

# Programs of the build (test discovery) run under Wine, where it is installed.
find_program(L5KOV_WINE wine64 PATHS /usr/lib/wine)
if(L5KOV_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../../tests/windows/wine.sh)
endif()
