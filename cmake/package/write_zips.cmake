# Run by CPack: writes three zips of the components that it laid into its temporary folder. The same files give the same
# bytes: sorted entries, and the time of the commit for all of them.

# Run in UTC, as a zip holds local times.
set(ENV{TZ} UTC)
execute_process(COMMAND git -C ${CPACK_SOURCE_ROOT} log -1 --date=format-local:%Y-%m-%d\ %H:%M:%S --format=%cd
                OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT time)
  message(STATUS "The tree has no commit that says its time: the files in the packages are of 2000-01-01")
  set(time "2000-01-01 00:00:00")
endif()

# write_zip(FOLDER SUFFIX): CPACK_PACKAGE_FILE_NAME + SUFFIX .zip, with one folder of that name that holds what FOLDER holds.
function(write_zip folder suffix)
  set(name ${CPACK_PACKAGE_FILE_NAME}${suffix})
  file(RENAME ${folder} ${CPACK_TEMPORARY_DIRECTORY}/${name})
  file(GLOB_RECURSE files RELATIVE ${CPACK_TEMPORARY_DIRECTORY} ${CPACK_TEMPORARY_DIRECTORY}/${name}/*)
  list(SORT files)
  set(zip ${CPACK_TEMPORARY_DIRECTORY}/${name}.zip)
  execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${zip} --format=zip --mtime=${time} -- ${files}
                  WORKING_DIRECTORY ${CPACK_TEMPORARY_DIRECTORY} COMMAND_ERROR_IS_FATAL ANY)
  set(CPACK_EXTERNAL_BUILT_PACKAGES ${CPACK_EXTERNAL_BUILT_PACKAGES} ${zip} PARENT_SCOPE)
endfunction()

set(runtime ${CPACK_TEMPORARY_DIRECTORY}/runtime)
set(debug ${CPACK_TEMPORARY_DIRECTORY}/debug)
file(MAKE_DIRECTORY ${debug})
foreach(binary IN LISTS CPACK_OWN_BINARIES)
  set(symbols ${debug}/${binary}.debug)
  foreach(arguments "--only-keep-debug;${runtime}/${binary};${symbols}" "--strip-all;${runtime}/${binary}"
                    "--add-gnu-debuglink=${symbols};${runtime}/${binary}")
    execute_process(COMMAND ${CPACK_OBJCOPY} ${arguments} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endforeach()
write_zip(${runtime} "")
write_zip(${CPACK_TEMPORARY_DIRECTORY}/sdk -sdk)
write_zip(${debug} -debug)
