# SPDX-License-Identifier: MIT
# Compares what the MSVC ABI makes of the exported classes with two goldens:
#   vtables_msvc.txt  the virtual tables of those that a host derives from, or whose slots it calls:
#                     slot 0 is the destructor, then declaration order
#   records_msvc.txt  sizes and fields' offsets of everything that crosses the border
#   cmake -DCLANG=... -DSOURCE=... -DINCLUDE=... -DWORK=... [-DUPDATE=ON] -P msvc_test.cmake
if(NOT CLANG AND "$ENV{L5KOV_TEST_ALL}" STREQUAL "")
  message(STATUS "SKIPPED: no clang++ (Debian: clang-14)")
  return()
endif()
execute_process(
  COMMAND ${CLANG} -target x86_64-pc-windows-msvc -std=c++17 -nostdinc -nostdinc++
    -isystem ${SOURCE}/stubs -I${INCLUDE} -I${SOURCE} -DL5KOV_BUILDING -w
    -Xclang -fdump-vtable-layouts -Xclang -fdump-record-layouts
    -c -o ${WORK}/layouts.obj ${SOURCE}/layouts.cpp
  OUTPUT_VARIABLE text ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${errors}")
endif()
# Semicolons separate a list's elements; brackets join them.
string(APPEND text "${errors}")
string(REGEX REPLACE "[;]" "," text "${text}")
string(REPLACE "[" "{" text "${text}")
string(REPLACE "]" "}" text "${text}")

function(compare name text)
  if(UPDATE)
    file(WRITE ${SOURCE}/${name} "${text}")
    return()
  endif()
  file(READ ${SOURCE}/${name} golden)
  if(NOT text STREQUAL golden)
    file(WRITE ${WORK}/${name} "${text}")
    execute_process(COMMAND diff -u ${SOURCE}/${name} ${WORK}/${name})
    message(FATAL_ERROR "What hosts built with MSVC rely on has changed")
  endif()
endfunction()

string(REGEX MATCHALL "VFTable for '[^\n]*\n([^\n]+\n)+" tables "${text}")
list(FILTER tables INCLUDE REGEX
  "'lumora::(MonitorControl|kov::KovCalibratorDelegate|kov::java::JavaException)' \\(")
list(REMOVE_DUPLICATES tables)
list(SORT tables)
list(JOIN tables "\n" tables)
compare(vtables_msvc.txt "${tables}")

# The fields of the class itself; what its members are made of is indented further.
string(REGEX MATCHALL "[ ]+0 \\| (class|struct) (OMC_|lumora::|pocketjson::)[^\n]*\n([^\n]+\n)+"
  records "${text}")
list(REMOVE_DUPLICATES records)
list(SORT records COMPARE NATURAL)
set(layouts "")
foreach(record IN LISTS records)
  string(REGEX MATCHALL
    "[ ]+[0-9]+ \\| (  )?[^ \n][^\n]*\n|sizeof=[0-9]+, align=[0-9]+" lines "${record}")
  list(JOIN lines "" lines)
  string(APPEND layouts "${lines}\n\n")
endforeach()
compare(records_msvc.txt "${layouts}")
