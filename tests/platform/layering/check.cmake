# SPDX-License-Identifier: MIT
# cmake -D ROOT=<source tree> -P check.cmake
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/rules.cmake)
check_house()
get_property(found GLOBAL PROPERTY VIOLATIONS)
cpp_files(files ${rooms})
list(LENGTH files count)
if(count LESS 100)
  message(SEND_ERROR "only ${count} files were looked at")
endif()
foreach(line IN LISTS found)
  message(SEND_ERROR "${line}")
endforeach()
