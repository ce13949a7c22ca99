# What a PC gets (component `runtime`) and what an engineer of a host gets (component `sdk`). CPack makes a zip of each, and
# one of the debug symbols; tools/package builds and packs in one go.
set(package_files ${CMAKE_CURRENT_LIST_DIR}/package)

install(TARGETS module_host module_camera host_services host_style RUNTIME DESTINATION . COMPONENT runtime)
install(FILES ${RUNTIME_LIBRARIES} DESTINATION . COMPONENT runtime)
install(FILES ${package_files}/test_camera.cmd DESTINATION . COMPONENT runtime)
# Qt looks for plug-ins beside the program.
set(plugins ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_PLUGINS})
install(FILES ${plugins}/platforms/qwindows.dll DESTINATION platforms COMPONENT runtime)
install(DIRECTORY ${plugins}/styles DESTINATION . COMPONENT runtime FILES_MATCHING PATTERN *.dll)
install(FILES ${plugins}/imageformats/qsvg.dll DESTINATION imageformats COMPONENT runtime)
install(FILES ${plugins}/iconengines/qsvgicon.dll DESTINATION iconengines COMPONENT runtime)
configure_file(${package_files}/README.txt.in README.txt @ONLY NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION . COMPONENT runtime)

# licence(NAME FILE): the licence of a part of the package. FILE is where Debian keeps it; -DLICENCE_NAME=<file> names another.
function(licence name file)
  if(LICENCE_${name})
    set(file ${LICENCE_${name}})
  endif()
  install(FILES ${file} DESTINATION licences RENAME ${name}.txt COMPONENT runtime)
endfunction()
licence(module_camera ${PROJECT_SOURCE_DIR}/LICENSE)
licence(QZXing ${qzxing_root}/LICENSE)
licence(Qt /usr/share/doc/qt6-base-dev/copyright)
licence(GCC-run-time /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright)
licence(mingw-w64 /usr/share/doc/mingw-w64-x86-64-dev/copyright)
foreach(text GPL-2 GPL-3 LGPL-2.1 LGPL-3 Apache-2.0)
  licence(${text} /usr/share/common-licenses/${text})
endforeach()

# sdk_headers(HEADER…): the headers as they are included, with those of ours that they include.
function(sdk_headers)
  set(pending ${ARGN})
  set(done)
  while(pending)
    list(POP_FRONT pending header)
    if(header IN_LIST done)
      continue()
    endif()
    list(APPEND done ${header})
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${header})
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION include/${folder} COMPONENT sdk)
    file(STRINGS ${PROJECT_SOURCE_DIR}/${header} lines REGEX "^#include \"")
    string(REGEX REPLACE "#include \"([^\"]*)\"" "\\1" lines "${lines}")
    list(APPEND pending ${lines})
  endwhile()
endfunction()
file(GLOB key_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/module/keys/*_keys.h)
sdk_headers(
  capture/camera_frame_capturer.h
  discovery/camera_component.h
  discovery/camera_component_manager.h
  module/camera_module_interface.h
  module/diagnostic.h
  module/exports.h
  module/host_services.h
  module/identifiers.h
  module/keys/family_constants.h
  module/product_version.h
  module/resource.h
  module/style_manager.h
  module/test.h
  module/test_execution_context.h
  ui/abstract_widget_wrapper.h
  ui/input_request.h
  ${key_headers}
)
install(TARGETS module_camera ARCHIVE DESTINATION lib COMPONENT sdk)
include(CMakePackageConfigHelpers)
write_basic_package_version_file(module_cameraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${package_files}/module_cameraConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/module_cameraConfigVersion.cmake
        DESTINATION lib/cmake/module_camera COMPONENT sdk)
install(FILES ${PROJECT_SOURCE_DIR}/docs/host-contract.md ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION . COMPONENT sdk)
install(FILES ${PROJECT_SOURCE_DIR}/examples/minimal_host/CMakeLists.txt ${PROJECT_SOURCE_DIR}/examples/minimal_host/main.cpp
        DESTINATION examples/minimal_host COMPONENT sdk)

set(CPACK_PACKAGE_FILE_NAME module_camera-${PROJECT_VERSION}-windows-x64)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_COMPONENTS_ALL runtime sdk)
# CPack's own zips hold the times at which files were read.
set(CPACK_GENERATOR External)
set(CPACK_EXTERNAL_ENABLE_STAGING ON)
set(CPACK_EXTERNAL_PACKAGE_SCRIPT ${package_files}/write_zips.cmake)
# For the script:
find_package(Python3 QUIET COMPONENTS Interpreter)
set(CPACK_PYTHON ${Python3_EXECUTABLE})
set(CPACK_OBJCOPY ${CMAKE_OBJCOPY})
set(CPACK_SOURCE_ROOT ${PROJECT_SOURCE_DIR})
set(CPACK_OWN_BINARIES module_host.exe module_camera.dll host_services.dll host_style.dll)
include(CPack)
