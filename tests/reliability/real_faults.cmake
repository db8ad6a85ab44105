# SPDX-License-Identifier: MIT
# The library over the Java runtime that builds it, with the simulator; on Windows over the newest.
set(classes ${CMAKE_CURRENT_BINARY_DIR}/classes)
set(planted ${CMAKE_CURRENT_BINARY_DIR}/planted)
set(throwing ${CMAKE_CURRENT_BINARY_DIR}/throwing.jar)
# Not compressed, so that a test can change the class file in place.
add_custom_command(OUTPUT ${throwing}
  COMMAND ${L5KOV_JAVAC} --release 8 -nowarn -Xlint:-options -d ${classes}
          ${CMAKE_CURRENT_SOURCE_DIR}/java/com/orva/kov/library/api/Osd.java
  COMMAND ${L5KOV_JAVAC} --release 8 -nowarn -Xlint:-options -d ${planted}
          ${CMAKE_CURRENT_SOURCE_DIR}/java/planted/Planted.java
  COMMAND ${L5KOV_JAR} cf0 ${throwing} -C ${classes} .
  DEPENDS java/com/orva/kov/library/api/Osd.java java/planted/Planted.java
  VERBATIM)
add_custom_target(reliability_jars DEPENDS ${throwing})

if(WIN32)
  file(GLOB homes ${L5KOV_WINDOWS_SYSROOT}/jre-*)
  if(NOT homes)
    return()
  endif()
  list(GET homes -1 home)
  set(system windows)
else()
  get_filename_component(home ${L5KOV_JAVAC} REALPATH)
  get_filename_component(home ${home}/../.. ABSOLUTE)
  set(system posix)
endif()
set(root ${CMAKE_CURRENT_BINARY_DIR}/appdata)
# reliability_add_real(NAME SOURCE LIBRARY): a program over that runtime
function(reliability_add_real name source library)
  add_executable(${name}
    ${source}
    ${PROJECT_SOURCE_DIR}/tests/real/support.cpp
    ${PROJECT_SOURCE_DIR}/tests/real/system_${system}.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(${name} PRIVATE
    l5kov_options ${library} l5kov_jni meter_x64 chroma_x64 GTest::gtest ${CMAKE_DL_LIBS})
  target_link_options(${name} PRIVATE -Wl,--no-as-needed)
endfunction()

reliability_add_real(reliability_real_faults real_faults_test.cpp l5kov::l5kov)
target_compile_definitions(reliability_real_faults PRIVATE
  L5KOV_TEST_THROWING_JAR="${throwing}" L5KOV_TEST_PLANTED_FOLDER="${planted}")
add_dependencies(reliability_real_faults simulator reliability_jars)
add_custom_command(TARGET reliability_real_faults POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${root}
  COMMAND ${CMAKE_COMMAND} -DROOT=${root} -DJAVA_HOME=${home} -DSIMULATOR_DIR=${L5KOV_SIMULATOR_DIR}
          -DWINDOWS=${WIN32} -DLINK=ON -P ${PROJECT_SOURCE_DIR}/simulator/layout.cmake
  VERBATIM)
reliability_add_real(reliability_real_cancel real_cancel_test.cpp l5kov_stepclock)
add_dependencies(reliability_real_cancel reliability_real_faults)
set(labels "")
if(WIN32)
  set(labels LABELS runtime)
endif()
foreach(name reliability_real_faults reliability_real_cancel)
  target_link_libraries(${name} PRIVATE GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 180 ${labels}
    ENVIRONMENT "L5KOV_COMMON_APPDATA=${root};LD_LIBRARY_PATH=${L5KOV_SIMULATOR_DIR}")
endforeach()

# reliability_long_run: no test of its own; tools/reliability/run.sh says how long it is to run.
reliability_add_real(reliability_long_run long_run.cpp l5kov::l5kov)
set_target_properties(reliability_long_run PROPERTIES EXCLUDE_FROM_ALL ON)
add_dependencies(reliability_long_run reliability_real_faults)
