# draw_codes(TARGET DESCRIPTION FOLDER): draws the barcodes of a description of virtual cameras into FOLDER, beside a copy of
# the description that names the images; both under the file names that tools/encode_codes gives them. TARGET needs them.
function(draw_codes target description folder)
  get_filename_component(name ${description} NAME)
  set(encode_codes ${PROJECT_SOURCE_DIR}/tools/encode_codes)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${folder}/${name} COMMAND ${Python3_EXECUTABLE} ${encode_codes} ${description} ${folder}
                     DEPENDS ${description} ${encode_codes} VERBATIM)
  add_custom_target(${target}_codes DEPENDS ${folder}/${name})
  add_dependencies(${target} ${target}_codes)
endfunction()
