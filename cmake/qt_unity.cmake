# Compiles several sources of Qt's libraries at a time, which takes half as long as one by one: most of the time goes into
# headers that they share. Those named here do not go together with others: their macros, names or default arguments clash.
function(unite target folder)
  list(TRANSFORM ARGN PREPEND ${QtBase_SOURCE_DIR}/src/${folder}/)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  set_source_files_properties(${ARGN} TARGET_DIRECTORY ${target} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# After Qt has made its targets.
cmake_language(DEFER CALL unite Core corelib
  compat/removed_api.cpp global/qlogging.cpp io/qurlquery.cpp io/qurlrecode.cpp kernel/qmetaobjectbuilder.cpp
  serialization/qcborstreamwriter.cpp text/qstring.cpp text/qunicodetools.cpp)
cmake_language(DEFER CALL unite Gui gui
  accessible/qaccessible.cpp image/qicon.cpp image/qimagereaderwriterhelpers.cpp image/qpixmapcache.cpp
  kernel/qgenericpluginfactory.cpp kernel/qplatforminputcontextfactory.cpp kernel/qplatformintegrationfactory.cpp
  kernel/qplatformthemefactory.cpp kernel/qwindowsysteminterface.cpp text/windows/qwindowsfontengine.cpp util/qpkmhandler.cpp)
cmake_language(DEFER CALL unite Widgets widgets
  accessible/qaccessiblewidgets.cpp compat/removed_api.cpp dialogs/qfiledialog.cpp dialogs/qsidebar.cpp styles/qstylefactory.cpp)
cmake_language(DEFER CALL unite QWindowsIntegrationPlugin plugins/platforms/windows qwindowspointerhandler.cpp)
