# The folder in which the product and everything that stands around it lie ready to run, beside the DLLs they need.
set(PROGRAM_DIR ${CMAKE_BINARY_DIR}/bin)

# windows_library(NAME): a DLL in PROGRAM_DIR whose file is called NAME.dll.
function(windows_library name)
  add_library(${name} SHARED)
  set_target_properties(${name} PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${PROGRAM_DIR})
  target_link_libraries(${name} PRIVATE project_options)
endfunction()

# windows_program(NAME): a console program in PROGRAM_DIR.
function(windows_program name)
  add_executable(${name})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROGRAM_DIR})
  target_link_libraries(${name} PRIVATE project_options)
endfunction()

if(CMAKE_CROSSCOMPILING)
  # Programs run through Wine, and find Qt and the compiler's DLLs where they are installed.
  set(CMAKE_CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tools/wine_run)
endif()
