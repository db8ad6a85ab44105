# SPDX-License-Identifier: MIT
# X/include, X/lib/libl5kov.so (Windows: X/bin/libl5kov.dll and its import library), X/lib/cmake/l5kov.
include(CMakePackageConfigHelpers)
set(L5KOV_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/l5kov)

install(TARGETS l5kov EXPORT l5kovTargets COMPONENT l5kov
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ COMPONENT l5kov
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT l5kovTargets COMPONENT l5kov NAMESPACE l5kov:: DESTINATION ${L5KOV_PACKAGE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/l5kovConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/l5kovConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/l5kovConfigVersion.cmake
  COMPONENT l5kov DESTINATION ${L5KOV_PACKAGE_DIR})

# The maker's libraries belong to the host's machine, not to the one that builds the host: a program
# that links libl5kov is linked without them.
if(NOT WIN32)
  target_link_options(l5kov INTERFACE LINKER:--unresolved-symbols=ignore-in-shared-libs)
endif()
