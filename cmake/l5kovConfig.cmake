# SPDX-License-Identifier: MIT
# find_package(l5kov CONFIG REQUIRED) gives l5kov::l5kov. At run time the host also needs the maker's
# measurement-device and colour libraries beside libl5kov or where the system looks for libraries.

# A DLL of one compiler serves hosts of that compiler: classes and the standard library's types cross
# the border, and MSVC lays them out otherwise than mingw-w64.
get_filename_component(l5kov_libraries ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
if(MSVC AND EXISTS ${l5kov_libraries}/libl5kov.dll.a)
  set(l5kov_FOUND FALSE)
  set(l5kov_NOT_FOUND_MESSAGE "this l5kov is built by mingw-w64 and does not serve MSVC")
  return()
endif()
include(${CMAKE_CURRENT_LIST_DIR}/l5kovTargets.cmake)
