# SPDX-License-Identifier: MIT
# What layout.cmake leaves behind, and that it can be run again over a folder in use.
function(lay_out)
  execute_process(COMMAND ${CMAKE_COMMAND} -DROOT=${WORK}/root ${ARGN}
      -DJAVA_HOME=${JAVA_HOME} -DSIMULATOR_DIR=${SIMULATOR_DIR} -P ${SOURCE}/layout.cmake
    COMMAND_ERROR_IS_FATAL ANY)
endfunction()
function(expect_file path)
  if(NOT EXISTS ${WORK}/root/ORVA/Lumora5/${path})
    message(FATAL_ERROR "missing: ${path}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
set(external plugins/com.orva.lumora.common.monitorcom.kov/external)
lay_out(-DFAULTS=${SOURCE}/faults.properties.example)
foreach(path
    plugins/com.orva.lumora.jre/jre/lib/server/libjvm.so
    plugins/com.orva.lumora.dataImport/external/dataImport.jar
    ${external}/KOVLibrary.jar ${external}/libkovpanel.so ${external}/simulator.properties
    ${external}/faults.properties Data/Profile/KovMonitorName.xml)
  expect_file(${path})
endforeach()

file(WRITE ${WORK}/root/ORVA/Lumora5/${external}/state/kept.properties "kept")
lay_out()
expect_file(${external}/state/kept.properties)
if(EXISTS ${WORK}/root/ORVA/Lumora5/${external}/faults.properties)
  message(FATAL_ERROR "faults of the last layout are still there")
endif()

# A folder that holds no Java runtime is refused before anything is written.
execute_process(COMMAND ${CMAKE_COMMAND} -DROOT=${WORK}/none -DJAVA_HOME=${WORK}
    -DSIMULATOR_DIR=${SIMULATOR_DIR} -P ${SOURCE}/layout.cmake
  RESULT_VARIABLE code ERROR_VARIABLE text)
if(code EQUAL 0 OR EXISTS ${WORK}/none OR NOT text MATCHES "no Java runtime")
  message(FATAL_ERROR "no complaint about a missing Java runtime: ${text}")
endif()
