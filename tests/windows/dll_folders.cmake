# SPDX-License-Identifier: MIT
# What a run path is on other systems: beside each program of the build tree, PROGRAM.exe.dlls lists
# the build tree's DLLs that it is linked with. wine.sh reads it. The vendor's two come last, for
# programs that only need the library to load.
function(l5kov_write_dll_lists folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
      set(vendor "")
      if(TARGET fake_meter)
        set(vendor $<TARGET_FILE:fake_meter>)
      endif()
      file(GENERATE OUTPUT $<TARGET_FILE:${target}>.dlls
        CONTENT "$<JOIN:$<TARGET_RUNTIME_DLLS:${target}>;${vendor},\n>\n")
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(subfolder IN LISTS folders)
    l5kov_write_dll_lists(${subfolder})
  endforeach()
endfunction()
