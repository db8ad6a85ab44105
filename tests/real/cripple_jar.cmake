# SPDX-License-Identifier: MIT
# JAR with a class EdidInformation that lacks getSerialNumber(), as OUTPUT/KOVLibrary.jar.
file(REMOVE_RECURSE ${OUTPUT})
file(MAKE_DIRECTORY ${OUTPUT}/classes)
file(COPY ${JAR} DESTINATION ${OUTPUT})
file(WRITE ${OUTPUT}/com/orva/kov/library/api/EdidInformation.java
"package com.orva.kov.library.api;
public interface EdidInformation {
  String getModelName();
  int getYearOfManufacture();
}
")
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result WORKING_DIRECTORY ${OUTPUT})
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV} ended with ${result}")
  endif()
endfunction()
run(${JAVAC} --release 11 -d ${OUTPUT}/classes
  ${OUTPUT}/com/orva/kov/library/api/EdidInformation.java)
run(${JAR_TOOL} uf ${OUTPUT}/KOVLibrary.jar -C ${OUTPUT}/classes
  com/orva/kov/library/api/EdidInformation.class)
