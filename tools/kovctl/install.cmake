# SPDX-License-Identifier: MIT
# X/bin/kovctl, its library of commands beside libl5kov, manual page and schemas. On Windows the
# library lies beside the program.
install(TARGETS kovctl kovctl_main COMPONENT kovctl
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION $<IF:$<BOOL:${WIN32}>,${CMAKE_INSTALL_BINDIR},${CMAKE_INSTALL_LIBDIR}>)
if(NOT WIN32)
  # The build tree's library also looks where the simulation lies; an installed one must not.
  install(CODE "file(RPATH_SET
    FILE \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/libkovctl-main.so\"
    NEW_RPATH \"\\$ORIGIN\")" COMPONENT kovctl)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/docs/kovctl.1 COMPONENT kovctl
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY schema/ COMPONENT kovctl
  DESTINATION ${CMAKE_INSTALL_DATADIR}/l5kov/schema FILES_MATCHING PATTERN "*.schema.json")
