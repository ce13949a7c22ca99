# What every target of the project is compiled with. Link `project_options` privately.
add_library(project_options INTERFACE)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wformat=2
  -Wundef -Wextra-semi -Wsuggest-override -Wimplicit-fallthrough)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(project_options INTERFACE -Wduplicated-cond -Wlogical-op)
endif()
target_compile_definitions(project_options INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

# For what is delivered: functions and lines. All of -g takes a quarter longer to compile. Packaging moves the symbols into a
# file of their own.
add_library(debug_symbols INTERFACE)

if(WIN32)
  target_compile_options(debug_symbols INTERFACE -g1)
  # Windows 10 is the oldest system that the module supports.
  target_compile_definitions(project_options INTERFACE UNICODE _UNICODE NOMINMAX _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  # The same source gives the same bytes, whenever, in whichever folder and by whomever it is built.
  target_compile_options(project_options INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  if(MODULE_CAMERA_QT)
    # Beside Qt lies the decoder.
    cmake_path(GET MODULE_CAMERA_QT PARENT_PATH cache)
    target_compile_options(project_options INTERFACE -ffile-prefix-map=${cache}=cache)
  endif()
  target_link_options(project_options INTERFACE -Wl,--no-insert-timestamp)
endif()

if(MODULE_CAMERA_SANITIZE STREQUAL "undefined-trap")
  target_compile_options(project_options INTERFACE -fsanitize=undefined -fsanitize-undefined-trap-on-error)
elseif(MODULE_CAMERA_SANITIZE)
  target_compile_options(project_options INTERFACE -fsanitize=${MODULE_CAMERA_SANITIZE} -fno-omit-frame-pointer
                         -fno-sanitize-recover=all)
  target_link_options(project_options INTERFACE -fsanitize=${MODULE_CAMERA_SANITIZE})
endif()
