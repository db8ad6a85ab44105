# SPDX-License-Identifier: MIT
# Sets OUT to the sorted list of what the library exports, demangled: by nm from a library for Linux,
# by objdump from a DLL.
function(l5kov_exported_names library out)
  if(library MATCHES "\\.dll$")
    execute_process(COMMAND ${OBJDUMP} -p ${library} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE ".*\\[Ordinal/Name Pointer\\] Table[^\n]*\n" "" text "${text}")
    string(REGEX REPLACE "\n\n.*" "" text "${text}")
    string(REGEX REPLACE "[^\n]*[ \t]([^ \t\n]+)" "\\1" text "${text}")
  else()
    execute_process(COMMAND ${NM} -D --defined-only --format=just-symbols ${library}
      OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  endif()
  string(REGEX REPLACE "@@[^\n]*" "" text "${text}")
  set(file ${CMAKE_CURRENT_BINARY_DIR}/exported_names.txt)
  if(WORK)
    set(file ${WORK}/exported_names.txt)
  endif()
  file(WRITE ${file} "${text}")
  execute_process(COMMAND ${CXXFILT} INPUT_FILE ${file} OUTPUT_VARIABLE text
    COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "\n+$" "" text "${text}")
  string(REPLACE ";" "\\;" text "${text}")
  string(REPLACE "\n" ";" names "${text}")
  list(SORT names)
  set(${out} "${names}" PARENT_SCOPE)
endfunction()
