# SPDX-License-Identifier: MIT
# l5kov_options: what every target of the project compiles with.
add_library(l5kov_options INTERFACE)
target_compile_features(l5kov_options INTERFACE cxx_std_20)
if(MSVC)
  target_compile_options(l5kov_options INTERFACE /W4 /permissive- /utf-8 /Zc:__cplusplus /EHsc)
else()
  target_compile_options(l5kov_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual)
endif()
# Hardened: stack canaries, checked copies in optimised builds (where the sanitizers do not check
# more), branch targets and shadow stack on x86. tests/reliability reads them from the binary.
if(NOT MSVC)
  target_compile_options(l5kov_options INTERFACE -fstack-protector-strong)
  target_link_options(l5kov_options INTERFACE -fstack-protector-strong)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    target_compile_options(l5kov_options INTERFACE -fcf-protection=full)
  endif()
  if(UNIX AND NOT L5KOV_SANITIZE)
    target_compile_options(l5kov_options INTERFACE -fstack-clash-protection
      $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>
      $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=3>)
  endif()
  if(UNIX)
    target_link_options(l5kov_options INTERFACE -Wl,-z,noexecstack)
  endif()
endif()
if(L5KOV_WERROR)
  target_compile_options(l5kov_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
if(L5KOV_SANITIZE)
  target_compile_options(l5kov_options INTERFACE
    -fsanitize=${L5KOV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(l5kov_options INTERFACE -fsanitize=${L5KOV_SANITIZE})
endif()
if(L5KOV_COVERAGE)
  target_compile_options(l5kov_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(l5kov_options INTERFACE --coverage)
endif()
find_package(Threads REQUIRED)
