# SPDX-License-Identifier: MIT
# l5kov_add_fake_test(<name> SOURCES <files>
#   [LIBRARY <target>|NONE]     what is tested; l5kov::l5kov unless given
#   [LIBRARIES <targets>]       more to link
#   [TIMEOUT <seconds>]         of one test; 60 unless given
#   [LABELS <labels>])
#
# A GoogleTest program over the fake Java runtime. Each TEST is a test of its own, in a process of
# its own, since libl5kov starts the virtual machine once per process.
include_guard(GLOBAL)
include(GoogleTest)

function(l5kov_add_fake_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "LIBRARY;TIMEOUT" "SOURCES;LIBRARIES;LABELS")
  if(NOT arg_LIBRARY)
    set(arg_LIBRARY l5kov::l5kov)
  elseif(arg_LIBRARY STREQUAL "NONE")
    set(arg_LIBRARY "")
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  find_package(GTest REQUIRED)

  add_executable(${name} ${arg_SOURCES})
  # The vendor stand-ins stand first, so that the loader has them under their names before
  # libl5kov asks for them.
  target_link_libraries(${name} PRIVATE
    l5kov_test_support ${arg_LIBRARY} ${arg_LIBRARIES} l5kov_options GTest::gtest
    GTest::gtest_main)
  if(NOT WIN32 AND NOT APPLE)
    target_link_options(${name} PRIVATE -Wl,--no-as-needed)
  endif()

  if(WIN32)
    set(search_path PATH)
  else()
    set(search_path LD_LIBRARY_PATH)
  endif()
  gtest_discover_tests(${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES
      TIMEOUT ${arg_TIMEOUT}
      LABELS "fake;${arg_LABELS}"
      ENVIRONMENT_MODIFICATION
        "${search_path}=path_list_prepend:$<TARGET_FILE_DIR:fake_meter>")
endfunction()
