# SPDX-License-Identifier: MIT
# cmake -D ROOT=<empty folder> -P planted.cmake
# Plants one violation after the other in a small tree of files and expects that rule, and no other,
# to find it.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/rules.cmake)

set(licence "// SPDX-License-Identifier: MIT\n")

# A header with everything that a header must have; its body is the last argument.
function(plant_header path guard body)
  file(WRITE ${ROOT}/${path} "${licence}#ifndef ${guard}\n#define ${guard}\n${body}\n#endif\n")
endfunction()

# A tree in which nothing is wrong.
function(clean_tree)
  file(REMOVE_RECURSE ${ROOT})
  plant_header(include/l5kov/export.h L5KOV_EXPORT_H_
    "#if defined(_WIN32)\n#define L5KOV_API\n#endif")
  plant_header(include/l5kov.h L5KOV_H_ "#include \"l5kov/export.h\"\n")
  plant_header(include/pocketjson/value.h L5KOV_POCKETJSON_VALUE_H_ "#include <string>")
  plant_header(pocketjson/container.h L5KOV_POCKETJSON_CONTAINER_H_
    "#include \"pocketjson/value.h\"")
  plant_header(platform/platform.h L5KOV_PLATFORM_PLATFORM_H_ "#include <string>")
  file(WRITE ${ROOT}/platform/windows/file.cpp
    "${licence}#include \"platform/platform.h\"\n#if defined(_WIN32)\n#endif\n")
  plant_header(java/jni_calls.h L5KOV_JAVA_JNI_CALLS_H_
    "#include <jni.h>\ninline void f(JNIEnv* env) { env->FindClass(nullptr); }")
  file(WRITE ${ROOT}/monitor/monitor.cpp "${licence}#include \"java/jni_calls.h\"\n")
  file(WRITE ${ROOT}/calibration/run.cpp "${licence}#include \"pocketjson/container.h\"\n")
  file(WRITE ${ROOT}/simulator/panel/panel.cpp "${licence}#include <jni.h>\n")
  file(WRITE ${ROOT}/tools/kovctl/main.cpp "${licence}#include <l5kov.h>\n")
endfunction()

# Runs the check on the tree and compares what it found with the one expected line.
function(expect expected)
  set_property(GLOBAL PROPERTY VIOLATIONS "")
  check_house()
  get_property(found GLOBAL PROPERTY VIOLATIONS)
  if(NOT "${found}" STREQUAL "${expected}")
    message(SEND_ERROR "expected: ${expected}\nfound:    ${found}")
  endif()
  clean_tree()
endfunction()

# Puts text behind the licence line of a file that is there or not.
function(plant path text)
  file(WRITE ${ROOT}/${path} "${licence}${text}\n")
endfunction()

clean_tree()
expect("")

# Include directions, by quotes, by angle brackets, and over relative paths.
plant(pocketjson/value.cpp "#include \"java/jni_calls.h\"")
expect("pocketjson/value.cpp: pocketjson may not include java/jni_calls.h")
plant_header(include/lumora.h L5KOV_LUMORA_H_ "#include \"platform/platform.h\"")
expect("include/lumora.h: include may not include platform/platform.h")
plant(platform/posix/file.cpp "#include \"java/jni_calls.h\"")
expect("platform/posix/file.cpp: platform may not include java/jni_calls.h")
plant(java/env.cpp "#  include <pocketjson/container.h>")
expect("java/env.cpp: java may not include pocketjson/container.h")
plant_header(calibration/run.h L5KOV_CALIBRATION_RUN_H_ "")
plant(monitor/history.cpp "#include \"../calibration/run.h\"")
expect("monitor/history.cpp: monitor may not include ../calibration/run.h")
plant(simulator/panel/more.cpp "#include <l5kov.h>")
expect("simulator/panel/more.cpp: simulator may not include l5kov.h")
plant(tools/kovctl/more.cpp "#include \"platform/platform.h\"")
expect("tools/kovctl/more.cpp: tools may not include platform/platform.h")
plant_header(tests/support/log.h L5KOV_TESTS_SUPPORT_LOG_H_ "")
plant(java/env.cpp "#include \"tests/support/log.h\"")
expect("java/env.cpp: java may not include tests/support/log.h")

# The operating system.
plant(java/env.cpp "\n#ifdef _WIN32\n#endif")
expect("java/env.cpp: asks for the operating system outside platform/: _WIN32")
plant(tools/kovctl/more.cpp "\n#if !defined(__linux__)\n#endif")
expect("tools/kovctl/more.cpp: asks for the operating system outside platform/: __linux__")

# Raw JNI calls.
foreach(call FindClass GetMethodID GetStaticFieldID CallVoidMethod CallStaticObjectMethodV
    NewGlobalRef DeleteLocalRef NewStringUTF ExceptionOccurred RegisterNatives GetEnv
    AttachCurrentThread NewObject SetDoubleArrayRegion PopLocalFrame ThrowNew)
  plant(monitor/more.cpp "void f() { env->${call}(0) }")
  expect("monitor/more.cpp: calls ${call} outside java/jni_calls.h")
endforeach()
plant(calibration/more.cpp "void f() { (*env).\n  IsSameObject (0) }")
expect("calibration/more.cpp: calls IsSameObject outside java/jni_calls.h")

# Macros and guards.
plant(java/env.cpp "#define kAnswer 42")
expect("java/env.cpp: defines the macro kAnswer")
plant(java/env.cpp "#  define L5KOV_API")
expect("java/env.cpp: defines the macro L5KOV_API")
plant(java/env.h "#pragma once")
expect("java/env.h: has no include guard L5KOV_JAVA_ENV_H_;java/env.h: has #pragma once")
plant_header(java/env.h L5KOV_ENV_H_ "")
expect("java/env.h: defines the macro L5KOV_ENV_H_;java/env.h: has no include guard L5KOV_JAVA_ENV_H_")

# Licence lines.
file(WRITE ${ROOT}/java/env.cpp "int x;\n${licence}")
expect("java/env.cpp: does not begin with its licence line")
file(WRITE ${ROOT}/simulator/CMakeLists.txt "project(x)\n")
expect("simulator/CMakeLists.txt: does not begin with its licence line")
file(WRITE ${ROOT}/platform/x.def "EXPORTS\n")
expect("platform/x.def: does not begin with its licence line")
file(WRITE ${ROOT}/platform/x.sh "#!/bin/sh\n# SPDX-License-Identifier: MIT\n")
expect("")

# Words; each broken by "~" here.
foreach(words "as the spe~cification says" "see the sp~ec." "Part~ 1.2" "the is~sue" "is~sue #7"
    "in /wo~rk/main" "a hel~per made it" "two age~nts" "this ses~sion")
  string(REPLACE "~" "" words "${words}")
  plant(java/env.cpp "// ${words} ")
  set_property(GLOBAL PROPERTY VIOLATIONS "")
  check_house()
  get_property(found GLOBAL PROPERTY VIOLATIONS)
  if(NOT found MATCHES "^java/env.cpp: says \"[^;]*$")
    message(SEND_ERROR "\"${words}\" was not found: ${found}")
  endif()
  clean_tree()
endforeach()
plant(java/env.cpp "// specular, respect, parts of it, reagent, network/x ")
expect("")
