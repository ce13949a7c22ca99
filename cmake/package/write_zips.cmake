# Run by CPack: writes three zips of the components that it laid into its temporary folder. The same files give the same
# bytes; the time of the commit is that of every file.

if(NOT CPACK_PYTHON)
  message(FATAL_ERROR "The packages are written by Python 3, which was not found at the last configuration")
endif()
execute_process(COMMAND git -C ${CPACK_SOURCE_ROOT} log -1 --format=%ct
                OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT time)
  message(STATUS "The tree has no commit that says its time: the files in the packages are of 2000-01-01")
  set(time 946684800)
endif()

# write_zip(FOLDER SUFFIX): CPACK_PACKAGE_FILE_NAME + SUFFIX .zip, with one folder of that name that holds what FOLDER holds.
function(write_zip folder suffix)
  set(name ${CPACK_PACKAGE_FILE_NAME}${suffix})
  file(RENAME ${folder} ${CPACK_TEMPORARY_DIRECTORY}/${name})
  set(zip ${CPACK_TEMPORARY_DIRECTORY}/${name}.zip)
  execute_process(COMMAND ${CPACK_PYTHON} ${CPACK_SOURCE_ROOT}/cmake/package/write_zip.py
                          ${zip} ${CPACK_TEMPORARY_DIRECTORY}/${name} ${time}
                  COMMAND_ERROR_IS_FATAL ANY)
  set(CPACK_EXTERNAL_BUILT_PACKAGES ${CPACK_EXTERNAL_BUILT_PACKAGES} ${zip} PARENT_SCOPE)
endfunction()

set(runtime ${CPACK_TEMPORARY_DIRECTORY}/runtime)
set(debug ${CPACK_TEMPORARY_DIRECTORY}/debug)
file(MAKE_DIRECTORY ${debug})
# Debian's run-time library of C++ comes with its symbols, which are nine tenths of it.
execute_process(COMMAND ${CPACK_OBJCOPY} --preserve-dates --strip-unneeded ${runtime}/libstdc++-6.dll COMMAND_ERROR_IS_FATAL ANY)
foreach(binary IN LISTS CPACK_OWN_BINARIES)
  set(symbols ${debug}/${binary}.debug)
  foreach(arguments "--only-keep-debug;${runtime}/${binary};${symbols}" "--strip-all;${runtime}/${binary}"
                    "--add-gnu-debuglink=${symbols};${runtime}/${binary}")
    # Else it writes the present time into the binary.
    execute_process(COMMAND ${CPACK_OBJCOPY} --preserve-dates ${arguments} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endforeach()
write_zip(${runtime} "")
write_zip(${CPACK_TEMPORARY_DIRECTORY}/sdk -sdk)
write_zip(${debug} -debug)
