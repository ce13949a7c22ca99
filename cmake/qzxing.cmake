# The barcode decoder QZXing from Debian's source package, with every decoder that it has. Its own build file asks for Qt 5
# by name, so it is compiled here. Always optimised, and without our warnings: it is not our code.
set(QZXING_SOURCE "" CACHE PATH "Source of QZXing; empty for the one that tools/setup fetches")
set(qzxing_root ${QZXING_SOURCE})
if(NOT qzxing_root AND CMAKE_HOST_UNIX)
  # Asked for anew at each configuration, and configured again when it may have changed: never an outdated source.
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/tools/qzxing_source
                  OUTPUT_VARIABLE qzxing_root OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
               ${PROJECT_SOURCE_DIR}/tools/fetch_qzxing ${PROJECT_SOURCE_DIR}/tools/common.sh)
endif()
if(NOT EXISTS "${qzxing_root}/src/QZXing.cpp")
  message(FATAL_ERROR "The source of the barcode decoder QZXing 3.3.0 is not in \"${qzxing_root}\". Name its folder: "
                      "-DQZXING_SOURCE=<folder>; on Debian 12 tools/setup fetches it")
endif()
file(STRINGS ${qzxing_root}/src/zxing/zxing/qrcode/detector/QRFinderPatternFinder.cpp qzxing_bound REGEX "module_camera:")
if(NOT qzxing_bound)
  message(WARNING "The source of QZXing in ${qzxing_root} has no bound for frames full of QR patterns: one of them can hold "
                  "a test up for minutes. tools/fetch_qzxing says what it edits.")
endif()

file(GLOB_RECURSE qzxing_sources ${qzxing_root}/src/zxing/*.cpp ${qzxing_root}/src/zxing/*.cc)
list(FILTER qzxing_sources EXCLUDE REGEX "/win32/")
set(qzxing_dir ${qzxing_root}/src)
add_library(qzxing STATIC ${qzxing_sources}
  ${qzxing_dir}/QZXing.cpp ${qzxing_dir}/QZXing.h
  ${qzxing_dir}/ImageHandler.cpp ${qzxing_dir}/ImageHandler.h
  ${qzxing_dir}/CameraImageWrapper.cpp ${qzxing_dir}/CameraImageWrapper.h)
# Many small sources with the same headers, which takes a quarter of the time together: those of each folder, but for three
# that have the constants' and functions' names of others there.
set_target_properties(qzxing PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
foreach(source IN LISTS qzxing_sources)
  cmake_path(GET source PARENT_PATH folder)
  cmake_path(GET source STEM name)
  if(NOT name MATCHES "^(CodaBarReader|Code39Reader|UPCEANExtension5Support)$")
    file(RELATIVE_PATH folder ${qzxing_dir} ${folder})
    string(MAKE_C_IDENTIFIER ${folder} group)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
  endif()
endforeach()
target_include_directories(qzxing SYSTEM PUBLIC ${qzxing_dir} ${qzxing_dir}/zxing)
if(WIN32)
  target_include_directories(qzxing SYSTEM PRIVATE ${qzxing_dir}/zxing/win32/zxing)
endif()
target_compile_definitions(qzxing
  PUBLIC NO_ICONV DISABLE_LIBRARY_FEATURES
         # Without one of these the default set of formats silently shrinks.
         ENABLE_DECODER_1D_BARCODES ENABLE_DECODER_QR_CODE ENABLE_DECODER_DATA_MATRIX ENABLE_DECODER_AZTEC
         ENABLE_DECODER_PDF17)
target_compile_options(qzxing PRIVATE -w -O2)
set_target_properties(qzxing PROPERTIES CXX_STANDARD 17 COMPILE_WARNING_AS_ERROR OFF)
target_link_libraries(qzxing PUBLIC Qt6::Core Qt6::Gui)
if(MODULE_CAMERA_SANITIZE MATCHES "address")
  # It looks for black points outside the picture, too, and reads a row that is not there: docs/barcode-test.md.
  set_source_files_properties(${qzxing_dir}/zxing/zxing/common/detector/WhiteRectangleDetector.cpp
                              PROPERTIES COMPILE_OPTIONS -fno-sanitize=address)
endif()
if(MODULE_CAMERA_SANITIZE MATCHES "address,undefined" OR MODULE_CAMERA_SANITIZE STREQUAL "thread")
  # Memory and races are checked in the decoder too; its own arithmetic is its own affair.
  string(REPLACE ",undefined" "" qzxing_sanitize "${MODULE_CAMERA_SANITIZE}")
  target_compile_options(qzxing PRIVATE -fsanitize=${qzxing_sanitize})
endif()
