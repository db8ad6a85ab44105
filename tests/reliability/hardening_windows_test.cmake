# SPDX-License-Identifier: MIT
# cmake -DLIBRARY=libl5kov.dll -DOBJDUMP=objdump -P hardening_windows_test.cmake
# What the linker and the compiler were told, read back from the shipped DLL.
cmake_minimum_required(VERSION 3.25)
set(failures "")

function(read_binary variable)
  execute_process(COMMAND ${OBJDUMP} ${ARGN} ${LIBRARY}
    OUTPUT_VARIABLE text RESULT_VARIABLE result)
  if(result OR text STREQUAL "")
    message(FATAL_ERROR "${OBJDUMP} ${ARGN} ${LIBRARY}: ${result}")
  endif()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

read_binary(headers -p)
read_binary(sections -h -w)
read_binary(code -d)

foreach(mark HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT)
  if(NOT headers MATCHES "\n[ \t]+${mark}\n")
    list(APPEND failures "missing: ${mark}")
  endif()
endforeach()
# What the loader moves, it needs the list of addresses for.
if(NOT sections MATCHES " [.]reloc ")
  list(APPEND failures "missing: base relocations")
endif()
string(REGEX MATCHALL "[^\n]*[, ]CODE[^\n]*" runnable "${sections}")
if(NOT runnable)
  list(APPEND failures "no runnable section was found, so none was looked at")
endif()
foreach(section IN LISTS runnable)
  if(NOT section MATCHES "READONLY")
    list(APPEND failures "writable and runnable: ${section}")
  endif()
endforeach()

string(REGEX MATCHALL "call[^\n]*<__stack_chk_fail>" canaries "${code}")
string(REGEX MATCHALL "endbr64" targets "${code}")
foreach(what canaries targets)
  list(LENGTH ${what} count)
  if(count LESS 50)
    list(APPEND failures "only ${count} ${what}")
  endif()
endforeach()

# Nothing beside the system's own libraries and the maker's two is loaded with it.
string(REGEX MATCHALL "DLL Name: [^\n]*" imports "${headers}")
foreach(import IN LISTS imports)
  if(NOT import MATCHES
     "DLL Name: (ADVAPI32|KERNEL32|msvcrt|ntdll|SHELL32|libmeter_x64|libchroma_x64)[.]dll")
    list(APPEND failures "imported: ${import}")
  endif()
endforeach()
if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "${LIBRARY}:\n  ${text}")
endif()
