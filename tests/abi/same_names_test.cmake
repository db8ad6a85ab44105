# SPDX-License-Identifier: MIT
# The two systems' goldens list the same names. Kept apart by their systems:
#   - size_t and std::int64_t are "unsigned long" and "long" on Linux, "... long" twice on Windows
#   - mingw's linker exports no names of type information ("typeinfo name for")
#   - on Linux the JSON containers' tables come with the exported class that they are nested in
file(STRINGS ${LINUX_NAMES} linux)
file(STRINGS ${WINDOWS_NAMES} windows)
list(FILTER linux EXCLUDE REGEX
  "^typeinfo name for |^(typeinfo|vtable) for pocketjson::Value::|::~AbstractContainer")
foreach(names linux windows)
  list(REMOVE_ITEM ${names} "")
  list(TRANSFORM ${names} REPLACE "long long" "long")
  list(REMOVE_DUPLICATES ${names})
  list(SORT ${names})
endforeach()
set(only_linux ${linux})
set(only_windows ${windows})
list(REMOVE_ITEM only_linux ${windows})
list(REMOVE_ITEM only_windows ${linux})
if(only_linux OR only_windows)
  list(JOIN only_linux "\n  " left)
  list(JOIN only_windows "\n  " right)
  message(FATAL_ERROR "Only on Linux:\n  ${left}\nOnly on Windows:\n  ${right}")
endif()
list(LENGTH linux count)
message(STATUS "${count} names on both systems")
