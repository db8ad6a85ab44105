# SPDX-License-Identifier: MIT
# Compares the virtual tables that the MSVC ABI gives the classes that a host derives from, or whose
# slots it calls, with the golden: slot 0 is the destructor, then declaration order.
#   cmake -DCLANG=... -DSOURCE=... -DINCLUDE=... -DGOLDEN=... -DWORK=... [-DUPDATE=ON] -P ...
execute_process(
  COMMAND ${CLANG} -target x86_64-pc-windows-msvc -std=c++17 -nostdinc -nostdinc++
    -isystem ${SOURCE}/stubs -I${INCLUDE} -DL5KOV_BUILDING -w -Xclang -fdump-vtable-layouts
    -c -o ${WORK}/layouts.obj ${SOURCE}/layouts.cpp
  OUTPUT_VARIABLE text ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${errors}")
endif()
string(REGEX MATCHALL "VFTable for '[^\n]*\n([^\n]+\n)+" tables "${text}${errors}")
list(FILTER tables INCLUDE REGEX
  "'lumora::(MonitorControl|kov::KovCalibratorDelegate|kov::java::JavaException)' \\(")
list(REMOVE_DUPLICATES tables)
list(SORT tables)
list(JOIN tables "\n" text)
if(UPDATE)
  file(WRITE ${GOLDEN} "${text}")
  return()
endif()
file(READ ${GOLDEN} golden)
if(NOT text STREQUAL golden)
  file(WRITE ${WORK}/vtables_msvc.txt "${text}")
  execute_process(COMMAND diff -u ${GOLDEN} ${WORK}/vtables_msvc.txt)
  message(FATAL_ERROR "The slots that hosts call have changed")
endif()
