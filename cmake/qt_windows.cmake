# How Qt for Windows is configured: what a program of windows, lists, tables, texts and file dialogs needs, and no more. Any
# change here but of a comment means a new Qt, which takes 10 minutes on 2 cores.
set(CMAKE_BUILD_TYPE Release CACHE STRING "")
# Qt's own -O3 takes a third longer to compile.
set(QT_USE_DEFAULT_CMAKE_OPTIMIZATION_FLAGS ON CACHE BOOL "")
set(CMAKE_C_FLAGS_RELEASE "-O1 -DNDEBUG" CACHE STRING "")
set(CMAKE_CXX_FLAGS_RELEASE "-O1 -DNDEBUG" CACHE STRING "")
set(CMAKE_PROJECT_QtBase_INCLUDE ${CMAKE_CURRENT_LIST_DIR}/qt_unity.cmake CACHE FILEPATH "")
set(QT_HOST_PATH /usr CACHE PATH "")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "")
set(QT_BUILD_EXAMPLES OFF CACHE BOOL "")
set(QT_BUILD_TESTS OFF CACHE BOOL "")
set(QT_BUILD_TOOLS_BY_DEFAULT OFF CACHE BOOL "")

# Bundled, as there is none for mingw; the offscreen platform plug-in exists only with it.
set(FEATURE_freetype ON CACHE BOOL "")
set(INPUT_freetype qt CACHE STRING "")
set(INPUT_opengl no CACHE STRING "")

# direct2d itself stays, as the windows platform plug-in does not link without it; direct2d1_1 is a second platform plug-in, a
# tenth of the time. tabletevent asks for a header that Debian strips.
foreach(feature
    concurrent dbus icu glib network opengl pkg_config printsupport sql system_pcre2 system_png system_zlib testlib vulkan xml
    direct2d1_1 gif harfbuzz hijricalendar islamiccivilcalendar jalalicalendar jpeg pdf tabletevent textmarkdownreader
    textmarkdownwriter textodfwriter undocommand undogroup undostack
    calendarwidget colordialog columnview completer datetimeedit dial dockwidget fontcombobox fontdialog graphicsview
    keysequenceedit lcdnumber mdiarea scroller syntaxhighlighter undoview wizard)
  set(FEATURE_${feature} OFF CACHE BOOL "")
endforeach()
