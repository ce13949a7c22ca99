# What a PC gets, and what stands in for its cameras under Wine. On a PC the second would hide the real cameras from the
# first: only the stage, where programs run under Wine, holds both.
set(APP_DIR ${CMAKE_BINARY_DIR}/app)
set(VIRTUAL_CAMERA_DIR ${CMAKE_BINARY_DIR}/virtual_camera)
set(STAGE_DIR ${APP_DIR})
if(CMAKE_CROSSCOMPILING)
  set(STAGE_DIR ${CMAKE_BINARY_DIR}/stage)
endif()

# The DLLs of Qt and of the compiler that the programs need.
set(RUNTIME_LIBRARIES)
foreach(library Core Gui Widgets)
  list(APPEND RUNTIME_LIBRARIES $<TARGET_FILE:Qt6::${library}>)
endforeach()
# The plug-ins that draw icons need it. It is looked for by its file, as no program links it.
set(qt_svg_library ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}/Qt6Svg.dll)
if(NOT EXISTS ${qt_svg_library})
  message(FATAL_ERROR "Qt SVG, which draws the icons, is not in ${qt_svg_library}. Install that module of Qt too.")
endif()
list(APPEND RUNTIME_LIBRARIES ${qt_svg_library})
cmake_path(GET CMAKE_CXX_COMPILER PARENT_PATH compiler_folder)
foreach(library libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
  # A compiler installed on Windows has them beside itself, a cross compiler among its libraries.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                  OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT IS_ABSOLUTE "${file}")
    set(file ${compiler_folder}/${library})
  endif()
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "The compiler's run-time library ${library} was not found, neither among its libraries nor as "
                        "${file}. Build with mingw-w64's GCC (64-bit, posix threads, SEH).")
  endif()
  list(APPEND RUNTIME_LIBRARIES ${file})
endforeach()

# windows_library(NAME FOLDER): a DLL in FOLDER whose file is called NAME.dll.
function(windows_library name folder)
  add_library(${name} SHARED)
  set_target_properties(${name} PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${folder})
  target_link_libraries(${name} PRIVATE project_options debug_symbols)
endfunction()

# windows_program(NAME FOLDER): a console program in FOLDER.
function(windows_program name folder)
  add_executable(${name})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${folder})
  target_link_libraries(${name} PRIVATE project_options debug_symbols)
endfunction()

# version_resource(TARGET DESCRIPTION): what the file's properties say in the Explorer.
function(version_resource target description)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(file_type VFT_APP)
    set(suffix exe)
  else()
    set(file_type VFT_DLL)
    set(suffix dll)
  endif()
  string(REPLACE . , file_version ${PROJECT_VERSION})
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()

# lay_stage(TARGET…): links to what the targets build and to the DLLs that it needs, as the target `stage`.
function(lay_stage)
  set(commands)
  foreach(target IN LISTS ARGN)
    list(APPEND commands COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:${target}>
         ${STAGE_DIR}/$<TARGET_FILE_NAME:${target}>)
  endforeach()
  foreach(file IN LISTS RUNTIME_LIBRARIES)
    list(APPEND commands COMMAND ${CMAKE_COMMAND} -E create_symlink ${file} ${STAGE_DIR}/$<PATH:GET_FILENAME,${file}>)
  endforeach()
  file(MAKE_DIRECTORY ${STAGE_DIR})
  add_custom_command(OUTPUT ${STAGE_DIR}/laid ${commands}
                     COMMAND ${CMAKE_COMMAND} -E touch ${STAGE_DIR}/laid VERBATIM)
  add_custom_target(stage ALL DEPENDS ${STAGE_DIR}/laid ${ARGN})
endfunction()

if(CMAKE_CROSSCOMPILING)
  # Programs run through Wine, and find Qt and the compiler's DLLs where they are installed.
  set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tools/wine_run)
endif()
