# SPDX-License-Identifier: MIT
# A host that is itself a Java program: its native library uses libl5kov, which joins its machine.
set(java_host ${CMAKE_CURRENT_BINARY_DIR}/java_host)
add_library(real_java_host SHARED
  java_host/java_host.cpp support.cpp system_${system}.cpp)
target_include_directories(real_java_host PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(real_java_host PRIVATE
  l5kov_options l5kov::l5kov l5kov_jni meter_x64 chroma_x64 GTest::gtest ${CMAKE_DL_LIBS})
target_link_options(real_java_host PRIVATE -Wl,--no-as-needed)
set_target_properties(real_java_host PROPERTIES CXX_VISIBILITY_PRESET default)
add_custom_command(OUTPUT ${java_host}/JavaHost.class
  COMMAND ${L5KOV_JAVAC} --release 8 -nowarn -Xlint:-options -d ${java_host}
          ${CMAKE_CURRENT_SOURCE_DIR}/java_host/JavaHost.java
  DEPENDS java_host/JavaHost.java
  VERBATIM)
add_custom_target(real_java_host_class DEPENDS ${java_host}/JavaHost.class)
add_dependencies(real_java_host simulator real_java_host_class)
add_dependencies(real_tests real_java_host)

# Java takes libraries by full paths alone; Wine calls the file system's root Z:.
set(library $<TARGET_FILE:real_java_host>)
if(WIN32)
  set(separator $<SEMICOLON>)
  if(CMAKE_CROSSCOMPILING)
    set(library Z:${library})
  endif()
else()
  set(separator :)
endif()

# real_add_java_host(PREFIX JAVA_HOME ROOT OPTIONS LABELS)
function(real_add_java_host prefix home root options labels)
  set(jar ${root}/ORVA/Lumora5/plugins/com.orva.lumora.common.monitorcom.kov/external/KOVLibrary.jar)
  separate_arguments(options)
  if(WIN32)
    # Not a link but a copy, and the loader tells libraries of the same content apart.
    set(home ${root}/ORVA/Lumora5/plugins/com.orva.lumora.jre/jre)
  endif()
  set(command ${CMAKE_CROSSCOMPILING_EMULATOR} ${home}/bin/java${CMAKE_EXECUTABLE_SUFFIX} ${options}
    -cp ${jar}${separator}${java_host} JavaHost ${library})
  foreach(use oneCall ownThreads javaThreads keptHandle released)
    real_add_java_host_test(${prefix}JavaHost.${use} ${root} "${labels}" ${command} ${use})
  endforeach()
  # What a Java host does wrong, and how it learns of it. On Windows a second runtime is loaded beside
  # the first, and what comes of that is theirs.
  list(GET roots 0 other)
  if(NOT other STREQUAL root AND NOT WIN32)
    real_add_java_host_test(${prefix}JavaHost.ofAnotherRuntime ${other} "${labels}" ${command} fails
      "exception: Failed to create Java VM")
  endif()
  if(options MATCHES "check:jni")
    # Bindings live as long as the native call that made them; -Xcheck:jni tells of later use and ends
    # the process, which must not count as a test that crashed.
    set(test ${prefix}JavaHost.bindingsOfAnEarlierCall)
    real_add_java_host_test(${test} ${root} "${labels}" sh -c "\"$@\" || true" sh ${command} again)
    set_tests_properties(${test} PROPERTIES
      FAIL_REGULAR_EXPRESSION "held" PASS_REGULAR_EXPRESSION "Bad global or local ref passed to JNI")
  else()
    # The look-ups go on with the first one's exception pending, which -Xcheck:jni speaks of.
    string(REPLACE "${jar}${separator}" "" without_jar "${command}")
    real_add_java_host_test(${prefix}JavaHost.withoutTheJar ${root} "${labels}" ${without_jar} fails
      "java.lang.NoSuchMethodError: com/orva/kov/library/impl/KovMonitorLibrary.getInstance()Lcom/orva/kov/library/api/MonitorLibrary$<SEMICOLON>")
  endif()
endfunction()

# real_add_java_host_test(NAME ROOT LABELS COMMAND...)
function(real_add_java_host_test test root labels)
  separate_arguments(labels)
  set(settings ${java_host}/${test})
  set(library_path ${L5KOV_SIMULATOR_DIR})
  if(WIN32)
    # The library itself, and what Java 17 looks for on the search path (CMakeLists.txt).
    string(APPEND library_path :$<TARGET_FILE_DIR:l5kov>
      :${root}/ORVA/Lumora5/plugins/com.orva.lumora.jre/jre/bin)
  endif()
  file(WRITE ${settings}/simulator.properties "search.ms = 0\nnoise = off\n")
  add_test(NAME ${test} COMMAND ${ARGN} WORKING_DIRECTORY ${settings})
  set_tests_properties(${test} PROPERTIES TIMEOUT 180 ${labels}
    FAIL_REGULAR_EXPRESSION "WARNING|FATAL|Exception"
    ENVIRONMENT
    "L5KOV_COMMON_APPDATA=${root};LD_LIBRARY_PATH=${library_path};KOV_SIM_HOME=${settings}")
endfunction()
