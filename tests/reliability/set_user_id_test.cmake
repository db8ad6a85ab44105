# SPDX-License-Identifier: MIT
# cmake -DPROBE=program -DFOLDER=scratch -P set_user_id_test.cmake
# In a set-user-id program the caller's environment must not choose the code that runs.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND id -u OUTPUT_VARIABLE user OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT user EQUAL 0)
  message(STATUS "SKIPPED: only the superuser can make a program of another user")
  return()
endif()
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
set(ENV{L5KOV_COMMON_APPDATA} /somewhere/else)

function(expect program wanted)
  execute_process(COMMAND ${program} OUTPUT_VARIABLE said RESULT_VARIABLE result
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(result OR NOT said STREQUAL wanted)
    message(FATAL_ERROR "${program}: \"${said}\" (${result}), not \"${wanted}\"")
  endif()
endfunction()

expect(${PROBE} /somewhere/else)
file(COPY_FILE ${PROBE} ${FOLDER}/probe)
execute_process(COMMAND chown 65534 ${FOLDER}/probe COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND chmod 4755 ${FOLDER}/probe COMMAND_ERROR_IS_FATAL ANY)
expect(${FOLDER}/probe /usr/share)
file(REMOVE_RECURSE ${FOLDER})
