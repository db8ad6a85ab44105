# SPDX-License-Identifier: MIT
# cpack in a build for Windows makes the ZIP for Windows users: library, headers and CMake package,
# kovctl, the simulation with its starter, licences.
set(L5KOV_PACKAGING ${PROJECT_SOURCE_DIR}/packaging/windows)
if(TARGET simulator)
  install(TARGETS kovpanel meter_x64 chroma_x64 COMPONENT simulator
    RUNTIME DESTINATION simulator
    ARCHIVE DESTINATION simulator EXCLUDE_FROM_ALL)
  foreach(file KOVLibrary.jar dataImport.jar simulator.properties KovMonitorName.xml)
    install(FILES ${L5KOV_SIMULATOR_DIR}/${file} COMPONENT simulator DESTINATION simulator)
  endforeach()
  install(PROGRAMS ${L5KOV_PACKAGING}/simulate.cmd COMPONENT simulator DESTINATION .)
endif()
install(FILES ${L5KOV_PACKAGING}/README.txt COMPONENT l5kov DESTINATION .)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE COMPONENT l5kov DESTINATION . RENAME LICENSE.txt)
if(L5KOV_WINDOWS_SYSROOT)
  # Of the libraries that are linked in; windows-dependencies.sh has put them there.
  install(DIRECTORY ${L5KOV_WINDOWS_SYSROOT}/share/licences COMPONENT l5kov DESTINATION share)
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME l5kov)
set(CPACK_PACKAGE_VENDOR "")
set(CPACK_PACKAGE_FILE_NAME l5kov-${PROJECT_VERSION}-windows-x64)
set(CPACK_COMPONENTS_ALL l5kov kovctl simulator)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_STRIP_FILES ON)
include(CPack)
