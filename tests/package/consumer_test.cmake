# SPDX-License-Identifier: MIT
# Installs the build into an empty prefix and lets a project of its own find, link and run it.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "${command}\nended with ${result}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix --component l5kov)
foreach(file include/l5kov.h lib/libl5kov.so lib/cmake/l5kov/l5kovConfig.cmake)
  if(NOT EXISTS ${WORK}/prefix/${file})
    message(FATAL_ERROR "the installed tree lacks ${file}")
  endif()
endforeach()
file(GLOB_RECURSE targets ${WORK}/prefix/lib/cmake/l5kov/*.cmake)
foreach(file IN LISTS targets)
  file(READ ${file} text)
  string(FIND "${text}" "${BUILD}" at)
  if(NOT at EQUAL -1)
    message(FATAL_ERROR "${file} speaks of the build folder")
  endif()
endforeach()
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${WORK}/prefix)
run(${CMAKE_COMMAND} --build ${WORK}/build)
# No Java runtime lies in an empty folder, so the host is told so; values work all the same. The
# vendor libraries are any that have the names.
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${VENDOR} L5KOV_COMMON_APPDATA=${WORK}/empty
  ${WORK}/build/host)
string(FIND "${output}" "250.5 cd/m2, Failed to create Java VM" at)
if(at EQUAL -1)
  message(FATAL_ERROR "the host said: ${output}")
endif()
