# SPDX-License-Identifier: MIT
# The shared library itself, made of the rooms' objects.
target_include_directories(l5kov_objects
  PUBLIC ${PROJECT_SOURCE_DIR}/include
  PRIVATE ${PROJECT_SOURCE_DIR})
target_compile_definitions(l5kov_objects PRIVATE L5KOV_BUILDING)
target_link_libraries(l5kov_objects PRIVATE l5kov_options l5kov_jni tinyxml2::tinyxml2 l5kov_vendor)

if(NOT MSVC)
  # The same loop takes up to twice the time where it happens to lie across the processor's lines of
  # code, so that a change in one place would show as one of reading a member (docs/performance.md).
  target_compile_options(l5kov_objects PRIVATE -falign-functions=64)
endif()
if(NOT WIN32)
  # No host replaces single functions of this library: its own calls of exported functions may be
  # inlined and need no jump through the linkage table.
  target_compile_options(l5kov_objects PRIVATE -fno-semantic-interposition -fno-plt)
endif()
add_library(l5kov SHARED $<TARGET_OBJECTS:l5kov_objects>)
add_library(l5kov::l5kov ALIAS l5kov)
set_target_properties(l5kov PROPERTIES
  OUTPUT_NAME l5kov
  PREFIX lib
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  # The maker's libraries are found beside this one, or where the system looks; never where the
  # link-only stubs lie.
  BUILD_WITH_INSTALL_RPATH ON
  INSTALL_RPATH "$ORIGIN")
target_include_directories(l5kov INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_compile_features(l5kov INTERFACE cxx_std_17)
target_link_libraries(l5kov PRIVATE l5kov_options tinyxml2::tinyxml2 l5kov_vendor l5kov_platform l5kov_platform_sleep
  Threads::Threads ${CMAKE_DL_LIBS})
if(NOT WIN32)
  target_link_options(l5kov PRIVATE
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map -Wl,--no-undefined -Wl,-z,relro,-z,now
    -Wl,-Bsymbolic-functions)
  set_target_properties(l5kov PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
endif()
