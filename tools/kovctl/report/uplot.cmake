# SPDX-License-Identifier: MIT
# Finds uPlot (MIT), which gives the report's charts zoom and hover, and sets KOVCTL_UPLOT_FOUND,
# KOVCTL_UPLOT_SCRIPT, KOVCTL_UPLOT_STYLE and KOVCTL_UPLOT_LICENSE. It is no part of this
# repository: npm fetches the pinned version into the build folder, once. Without npm or a network
# the reports are complete all the same, only without zoom and hover.
option(KOVCTL_UPLOT "Put uPlot into the reports when it can be had" ON)
set(KOVCTL_UPLOT_DIR "" CACHE PATH "Folder of an unpacked uPlot package, instead of fetching it")

set(KOVCTL_UPLOT_FOUND FALSE)
set(kovctl_uplot_sums
  dist/uPlot.iife.min.js 19c8d4c6ad88929a79f4ae49d6f7161566dfd0ba3d15cc495e974f787eb78f1f
  dist/uPlot.min.css df630c6a8d6f8eeaff264b50f73ce5b114f646ffd9a0bb74f049b0a00135fa04)

# Whether the folder holds exactly the files that were looked at.
function(kovctl_check_uplot folder result)
  set(${result} FALSE PARENT_SCOPE)
  set(sums ${kovctl_uplot_sums})
  while(sums)
    list(POP_FRONT sums file expected)
    if(NOT EXISTS ${folder}/${file})
      return()
    endif()
    file(SHA256 ${folder}/${file} actual)
    if(NOT actual STREQUAL expected)
      message(WARNING "${folder}/${file} is not the file that belongs here; uPlot is left out")
      return()
    endif()
  endwhile()
  if(EXISTS ${folder}/LICENSE)
    set(${result} TRUE PARENT_SCOPE)
  endif()
endfunction()

function(kovctl_fetch_uplot folder)
  find_program(NPM_EXECUTABLE npm)
  if(NOT NPM_EXECUTABLE)
    return()
  endif()
  file(MAKE_DIRECTORY ${folder})
  configure_file(${CMAKE_CURRENT_SOURCE_DIR}/package.json ${folder}/package.json COPYONLY)
  configure_file(${CMAKE_CURRENT_SOURCE_DIR}/package-lock.json ${folder}/package-lock.json COPYONLY)
  execute_process(
    COMMAND ${NPM_EXECUTABLE} ci --ignore-scripts --no-audit --no-fund --fetch-retries=1
    WORKING_DIRECTORY ${folder}
    TIMEOUT 90
    OUTPUT_QUIET ERROR_QUIET)
endfunction()

if(KOVCTL_UPLOT)
  if(KOVCTL_UPLOT_DIR)
    set(kovctl_uplot_folder ${KOVCTL_UPLOT_DIR})
  else()
    set(kovctl_uplot_folder ${CMAKE_CURRENT_BINARY_DIR}/npm/node_modules/uplot)
    if(NOT EXISTS ${kovctl_uplot_folder})
      kovctl_fetch_uplot(${CMAKE_CURRENT_BINARY_DIR}/npm)
    endif()
  endif()
  kovctl_check_uplot(${kovctl_uplot_folder} KOVCTL_UPLOT_FOUND)
  if(NOT KOVCTL_UPLOT_FOUND)
    message(NOTICE "kovctl: uPlot could not be had (npm and a network, or KOVCTL_UPLOT_DIR); "
                   "reports are complete, but their charts have no zoom and hover")
  endif()
endif()
if(KOVCTL_UPLOT_FOUND)
  set(KOVCTL_UPLOT_SCRIPT ${kovctl_uplot_folder}/dist/uPlot.iife.min.js)
  set(KOVCTL_UPLOT_STYLE ${kovctl_uplot_folder}/dist/uPlot.min.css)
  set(KOVCTL_UPLOT_LICENSE ${kovctl_uplot_folder}/LICENSE)
endif()
