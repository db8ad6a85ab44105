# SPDX-License-Identifier: MIT
# Compares what the library exports with the golden list of its system.
#   cmake -DLIBRARY=... -DGOLDEN=... -DNM=... -DOBJDUMP=... -DCXXFILT=... -DWORK=... [-DUPDATE=ON]
#         -P exports_test.cmake
include(${CMAKE_CURRENT_LIST_DIR}/normalise.cmake)
l5kov_exported_names(${LIBRARY} names)
list(JOIN names "\n" text)
string(APPEND text "\n")
if(UPDATE)
  file(WRITE ${GOLDEN} "${text}")
  return()
endif()
file(READ ${GOLDEN} golden)
if(NOT text STREQUAL golden)
  file(WRITE ${WORK}/exports.txt "${text}")
  execute_process(COMMAND diff -u ${GOLDEN} ${WORK}/exports.txt)
  message(FATAL_ERROR "The exported names have changed. Names that hosts link against must stay; "
    "new ones belong into ${GOLDEN}.")
endif()
