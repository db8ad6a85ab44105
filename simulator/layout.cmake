# SPDX-License-Identifier: MIT
# Lays out a machine-wide application-data folder as the maker's installer leaves it, made of the
# stand-ins. On Linux, point L5KOV_COMMON_APPDATA at ROOT.
#
#   cmake -DROOT=... -DJAVA_HOME=... -DSIMULATOR_DIR=... [-DFAULTS=...] [-DWINDOWS=ON]
#         [-DLINK=ON] -P layout.cmake
#
# ROOT           the folder to fill; what lies there already is replaced file by file
# JAVA_HOME      the Java runtime: linked to, or with WINDOWS and without LINK copied
# SIMULATOR_DIR  where the build has put the jars and libraries
# FAULTS         a file to lay beside the jars as faults.properties
# WINDOWS        lay out for Windows (bin/server/jvm.dll), also from another system
cmake_minimum_required(VERSION 3.25)
foreach(name ROOT JAVA_HOME SIMULATOR_DIR)
  if(NOT ${name})
    message(FATAL_ERROR "layout.cmake: ${name} is missing")
  endif()
endforeach()
if(CMAKE_HOST_WIN32)
  set(WINDOWS ON)
endif()
if(WINDOWS)
  set(runtime bin/server/jvm.dll)
  set(panel kovpanel.dll)
else()
  set(runtime lib/server/libjvm.so)
  set(panel libkovpanel.so)
endif()
if(NOT EXISTS ${JAVA_HOME}/${runtime})
  message(FATAL_ERROR "layout.cmake: no Java runtime: ${JAVA_HOME}/${runtime} is missing")
endif()

set(plugins ${ROOT}/ORVA/Lumora5/plugins)
set(jre ${plugins}/com.orva.lumora.jre)
file(MAKE_DIRECTORY ${jre})
file(REMOVE_RECURSE ${jre}/jre)
if(WINDOWS AND NOT LINK)
  file(COPY ${JAVA_HOME}/ DESTINATION ${jre}/jre)
else()
  file(CREATE_LINK ${JAVA_HOME} ${jre}/jre SYMBOLIC)
endif()

file(COPY ${SIMULATOR_DIR}/dataImport.jar
  DESTINATION ${plugins}/com.orva.lumora.dataImport/external)
set(external ${plugins}/com.orva.lumora.common.monitorcom.kov/external)
file(COPY ${SIMULATOR_DIR}/KOVLibrary.jar ${SIMULATOR_DIR}/${panel}
  ${SIMULATOR_DIR}/simulator.properties DESTINATION ${external})
file(REMOVE ${external}/faults.properties)
if(FAULTS)
  configure_file(${FAULTS} ${external}/faults.properties COPYONLY)
endif()
file(COPY ${SIMULATOR_DIR}/KovMonitorName.xml DESTINATION ${ROOT}/ORVA/Lumora5/Data/Profile)
