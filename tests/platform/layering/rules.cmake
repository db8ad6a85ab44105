# SPDX-License-Identifier: MIT
# The rules of the house, as functions that look at the source tree below ROOT. Each adds a line
# "<file>: <what is wrong>" to the global property VIOLATIONS.

# Which folder may include from which (itself is always allowed). A header below include/ counts as
# "include", whichever folder its path begins with.
set(may_include_include "")
set(may_include_pocketjson include)
set(may_include_platform include)
set(may_include_java platform include)
set(may_include_monitor java pocketjson platform include)
set(may_include_calibration monitor java pocketjson platform include)
set(may_include_simulator "")
set(may_include_tools include)
# The code map stands alone: it includes nothing of its folder, and the history reads the same codes
# that the callbacks write.
set(known_exceptions "monitor/history.cpp calibration/measurement_device_code_map.h")
set(library_rooms include pocketjson platform java monitor calibration)
set(rooms ${library_rooms} simulator tools)

function(violation file text)
  file(RELATIVE_PATH shown ${ROOT} ${file})
  set_property(GLOBAL APPEND PROPERTY VIOLATIONS "${shown}: ${text}")
endfunction()

# The C++ files of the folders given after the name of the result.
function(cpp_files result)
  set(found "")
  foreach(folder IN LISTS ARGN)
    file(GLOB_RECURSE files ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp)
    list(FILTER files EXCLUDE REGEX "/node_modules/")
    list(APPEND found ${files})
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# The folder that an included path belongs to; empty for what is not of this project.
function(room_of result file path)
  get_filename_component(here ${file} DIRECTORY)
  set(room "")
  if(EXISTS ${ROOT}/include/${path} AND NOT path MATCHES "^\\.\\.")
    set(room include)
  else()
    foreach(base ${here} ${ROOT})
      get_filename_component(full ${path} ABSOLUTE BASE_DIR ${base})
      file(RELATIVE_PATH relative ${ROOT} ${full})
      if(EXISTS ${full} AND NOT relative MATCHES "^\\.\\.")
        string(REGEX REPLACE "/.*" "" room ${relative})
        break()
      endif()
    endforeach()
  endif()
  set(${result} "${room}" PARENT_SCOPE)
endfunction()

function(check_include_directions)
  foreach(room IN LISTS rooms)
    cpp_files(files ${room})
    foreach(file IN LISTS files)
      file(READ ${file} text)
      string(REGEX MATCHALL "#[ \t]*include[ \t]*[<\"][^\n>\"]+" includes "${text}")
      foreach(include IN LISTS includes)
        string(REGEX REPLACE "^[^<\"]*[<\"]" "" path "${include}")
        room_of(included ${file} ${path})
        file(RELATIVE_PATH shown ${ROOT} ${file})
        if("${shown} ${path}" IN_LIST known_exceptions)
          continue()
        endif()
        if(included AND NOT included STREQUAL room AND NOT included IN_LIST may_include_${room})
          violation(${file} "${room} may not include ${path}")
        endif()
      endforeach()
    endforeach()
  endforeach()
endfunction()

function(check_system_conditions)
  cpp_files(files include pocketjson java monitor calibration tools)
  list(REMOVE_ITEM files ${ROOT}/include/l5kov/export.h)
  foreach(file IN LISTS files)
    file(READ ${file} text)
    if(text MATCHES "\n[ \t]*#[ \t]*(el)?if[^\n]*(_WIN32|_WIN64|__linux__|__unix__|__APPLE__)[^\n]*")
      violation(${file} "asks for the operating system outside platform/: ${CMAKE_MATCH_2}")
    endif()
  endforeach()
endfunction()

# Every call of the library through a JNI function table.
function(check_raw_jni_calls)
  string(JOIN "|" slots
    "Call[A-Z][A-Za-z]*Method[AV]?" "FindClass" "DefineClass" "GetObjectClass" "GetSuperclass"
    "IsAssignableFrom" "IsInstanceOf" "IsSameObject" "AllocObject" "NewObject[AV]?"
    "Get[A-Z][A-Za-z]*ID" "[GS]et[A-Z][A-Za-z]*Field" "New[A-Z][a-z]+Ref" "Delete[A-Z][a-z]+Ref"
    "New[A-Z][a-z]+Array" "[GS]et[A-Z][a-z]+Array[ER][a-z]+" "GetArrayLength" "NewString"
    "NewStringUTF" "GetString[A-Z][A-Za-z]*" "Release[A-Z][A-Za-z]+" "PushLocalFrame"
    "PopLocalFrame" "EnsureLocalCapacity" "Exception[CDO][a-z]+" "Throw" "ThrowNew" "FatalError"
    "RegisterNatives" "UnregisterNatives" "MonitorEnter" "MonitorExit" "GetJavaVM" "GetEnv"
    "GetVersion" "AttachCurrentThread[A-Za-z]*" "DetachCurrentThread" "DestroyJavaVM")
  cpp_files(files ${library_rooms})
  list(REMOVE_ITEM files ${ROOT}/java/jni_calls.h)
  foreach(file IN LISTS files)
    file(READ ${file} text)
    if(text MATCHES "(->|\\.)[ \n\t]*(${slots})[ \n\t]*\\(")
      violation(${file} "calls ${CMAKE_MATCH_2} outside java/jni_calls.h")
    endif()
  endforeach()
endfunction()

# No macros but the export mark and include guards, which are named after the file's path.
function(check_macros)
  cpp_files(files ${rooms})
  foreach(file IN LISTS files)
    file(READ ${file} text)
    file(RELATIVE_PATH path ${ROOT} ${file})
    string(REGEX REPLACE "^include/" "" path ${path})
    string(REGEX REPLACE "^l5kov([./])" "\\1" path ${path})
    string(REGEX REPLACE "[^A-Za-z0-9]+" "_" guard "L5KOV_${path}_")
    string(REGEX REPLACE "__+" "_" guard ${guard})
    string(TOUPPER ${guard} guard)
    string(REGEX MATCHALL "#[ \t]*define[ \t]+[A-Za-z0-9_]+" macros "${text}")
    foreach(macro IN LISTS macros)
      string(REGEX REPLACE ".*[ \t]" "" name ${macro})
      if(NOT name STREQUAL guard AND
         NOT (name STREQUAL "L5KOV_API" AND path STREQUAL "/export.h"))
        violation(${file} "defines the macro ${name}")
      endif()
    endforeach()
    if(file MATCHES "\\.h$" AND NOT text MATCHES "#ifndef ${guard}\n#define ${guard}\n")
      violation(${file} "has no include guard ${guard}")
    endif()
    if(text MATCHES "#[ \t]*pragma[ \t]+once")
      violation(${file} "has #pragma once")
    endif()
  endforeach()
endfunction()

# Everything that is written here: sources and texts, without what tools leave behind.
function(written_files result)
  file(GLOB_RECURSE files LIST_DIRECTORIES false
    ${ROOT}/*.h ${ROOT}/*.cpp ${ROOT}/*.java ${ROOT}/*.cmake ${ROOT}/CMakeLists.txt ${ROOT}/*.sh
    ${ROOT}/*.def ${ROOT}/*.map ${ROOT}/*.js ${ROOT}/*.css ${ROOT}/*.md ${ROOT}/*.txt)
  list(FILTER files EXCLUDE REGEX "^${ROOT}/(build|out|\\.git)/|/node_modules/")
  set(${result} ${files} PARENT_SCOPE)
endfunction()

function(check_licence_lines)
  written_files(files)
  foreach(file IN LISTS files)
    if(file MATCHES "\\.md$" OR (file MATCHES "\\.txt$" AND NOT file MATCHES "/CMakeLists\\.txt$"))
      continue()
    endif()
    file(READ ${file} text LIMIT 200)
    if(NOT text MATCHES "^(#![^\n]*\n)?(//|#|;|/\\*) SPDX-License-Identifier: MIT")
      violation(${file} "does not begin with its licence line")
    endif()
  endforeach()
endfunction()

# Words about how the texts came about. Broken by "~" here, so that this file is held to its own rule.
function(check_words)
  set(words
    "spe~cification" "[^a-z.]sp~ec[^a-z]" "[^a-z]parts? ~[0-9]+\\.[0-9]" "the is~sue[^a-z]"
    "is~sue #?[0-9]" "/wo~rk/" "[^a-z]hel~pers?[^a-z]" "[^a-z]age~nts?[^a-z]"
    "(this|another|previous) ses~sion")
  string(REPLACE "~" "" words "${words}")
  list(JOIN words "|" words)
  written_files(files)
  foreach(file IN LISTS files)
    file(READ ${file} text)
    string(TOLOWER "${text}" text)
    if(text MATCHES "(${words})")
      violation(${file} "says \"${CMAKE_MATCH_1}\"")
    endif()
  endforeach()
endfunction()

function(check_house)
  check_include_directions()
  check_system_conditions()
  check_raw_jni_calls()
  check_macros()
  check_licence_lines()
  check_words()
endfunction()
