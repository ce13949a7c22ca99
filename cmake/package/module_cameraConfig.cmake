# find_package(module_camera): the target module_camera::module_camera has the headers and the import library. The DLL and
# what it needs come in the zip of the program; lay them beside the host's own program. module/style_manager.h, for a host with
# a style of its own, includes Qt's QString; Qt 6 is the host's to find.
get_filename_component(module_camera_sdk "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
if(NOT TARGET module_camera::module_camera)
  add_library(module_camera::module_camera INTERFACE IMPORTED)
  target_include_directories(module_camera::module_camera INTERFACE ${module_camera_sdk}/include)
  target_link_libraries(module_camera::module_camera INTERFACE ${module_camera_sdk}/lib/libmodule_camera.dll.a)
  target_compile_features(module_camera::module_camera INTERFACE cxx_std_20)
endif()
unset(module_camera_sdk)
