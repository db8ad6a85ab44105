# SPDX-License-Identifier: MIT
# Writes a C++ source with files built in: cmake -DOUTPUT=… -DPAIRS="name=file;…" -P embed.cmake.
# An empty file name gives an empty text. Arrays of bytes, since compilers limit the length of texts.
set(source "// Made by embed.cmake.\n#include \"report/assets.h\"\n\nnamespace kovctl {\n")
foreach(pair IN LISTS PAIRS)
  string(REGEX MATCH "^([A-Za-z]+)=(.*)$" found "${pair}")
  set(name ${CMAKE_MATCH_1})
  set(file "${CMAKE_MATCH_2}")
  if("${file}" STREQUAL "")
    string(APPEND source "std::string_view ${name}() { return {}; }\n")
    continue()
  endif()
  file(READ ${file} bytes HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
  string(APPEND source
    "static constexpr char k_${name}[] = {${bytes}};\n"
    "std::string_view ${name}() { return {k_${name}, sizeof(k_${name})}; }\n")
endforeach()
string(APPEND source "}  // namespace kovctl\n")
file(WRITE ${OUTPUT} "${source}")
