# SPDX-License-Identifier: MIT
# The maker's two libraries are known by name alone: those beside a host are used, and others in
# their place are used without a rebuild.
#   cmake -DWINE=... -DHOST=... -DLIBRARY=... -DSIMULATOR=... -DOTHERS=... -DAPPDATA=... -DWORK=...
#         -P vendor_test.cmake
function(run_host out)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env L5KOV_COMMON_APPDATA=${APPDATA}
            LD_LIBRARY_PATH=${APPDATA}/ORVA/Lumora5/plugins/com.orva.lumora.jre/jre/bin
            ${WINE} ${WORK}/vendor_host.exe
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0 OR NOT output MATCHES "target: 0")
    message(FATAL_ERROR "the host ended with ${result}:\n${output}")
  endif()
  set(${out} "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
file(COPY ${LIBRARY} ${SIMULATOR}/libmeter_x64.dll ${SIMULATOR}/libchroma_x64.dll
  DESTINATION ${WORK})
file(COPY_FILE ${HOST} ${WORK}/vendor_host.exe)
run_host(simulated)
if(simulated MATCHES "other maker")
  message(FATAL_ERROR "not the libraries beside the host:\n${simulated}")
endif()
file(COPY ${OTHERS}/libmeter_x64.dll ${OTHERS}/libchroma_x64.dll DESTINATION ${WORK})
run_host(other)
foreach(function MDGetDeviceID MDGetSerialNumber Colour_tmp2xy)
  if(NOT other MATCHES "other maker: ${function}")
    message(FATAL_ERROR "${function} was not asked of the libraries beside the host:\n${other}")
  endif()
endforeach()
