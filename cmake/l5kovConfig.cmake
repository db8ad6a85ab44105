# SPDX-License-Identifier: MIT
# find_package(l5kov CONFIG REQUIRED) gives l5kov::l5kov. At run time the host also needs the maker's
# measurement-device and colour libraries beside libl5kov or where the system looks for libraries.
include(${CMAKE_CURRENT_LIST_DIR}/l5kovTargets.cmake)
