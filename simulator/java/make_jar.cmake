# SPDX-License-Identifier: MIT
# cmake -DJAVAC= -DJAR= -DSOURCES= -DCLASSES= -DOUTPUT= -P make_jar.cmake
file(GLOB_RECURSE sources ${SOURCES}/*.java)
list(SORT sources)
file(REMOVE_RECURSE ${CLASSES})
file(MAKE_DIRECTORY ${CLASSES})
execute_process(
  COMMAND ${JAVAC} --release 11 -encoding UTF-8 -Xlint:all -Werror -d ${CLASSES} ${sources}
  COMMAND_ERROR_IS_FATAL ANY)
# In sorted order and with one fixed date, so that the same sources give the same bytes. Archivers
# before JDK 17 know no --date; the jar is as good, only not repeatable.
file(GLOB_RECURSE classes RELATIVE ${CLASSES} ${CLASSES}/*.class)
list(SORT classes)
string(REPLACE ";" "\n" names "${classes}")
file(WRITE ${CLASSES}/files.txt "${names}\n")
file(REMOVE ${OUTPUT})
execute_process(
  COMMAND ${JAR} --create --no-manifest --date=2026-01-01T00:00:00Z --file ${OUTPUT} @files.txt
  WORKING_DIRECTORY ${CLASSES} RESULT_VARIABLE failed OUTPUT_QUIET ERROR_QUIET)
if(failed)
  execute_process(COMMAND ${JAR} --create --no-manifest --file ${OUTPUT} @files.txt
    WORKING_DIRECTORY ${CLASSES} COMMAND_ERROR_IS_FATAL ANY)
endif()
