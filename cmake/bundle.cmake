# Copies the libraries that the installed programs need into the installation, so that it runs where they are missing:
# all but the C and C++ libraries, which each system has. Those that draw on a display are in a folder of their own,
# lib/vanzet/display, which may be deleted where the system has its own: these fit its graphics driver.
#   CMAKE_INSTALL_PREFIX, VANZET_LIBPQ, VANZET_QT_PLUGINS, and the files as they are built: own_programs, own_libraries
set(root "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
set(of_system "^(ld-linux|linux-vdso|lib(c|m|dl|rt|pthread|resolv|util|nsl|anl|stdc\\+\\+|gcc_s)[.]so)")
set(of_display "^lib(GL|EGL|OpenGL|GLX|GLdispatch|drm|gbm|X|xcb|ICE|SM|xkbcommon|wayland)")

set(plugins ${root}/lib/vanzet/plugins)
foreach(plugin IN ITEMS platforms/libqxcb.so platforms/libqoffscreen.so platforms/libqminimal.so
                        xcbglintegrations/libqxcb-egl-integration.so xcbglintegrations/libqxcb-glx-integration.so
                        imageformats/libqsvg.so imageformats/libqjpeg.so iconengines/libqsvgicon.so
                        platforminputcontexts/libcomposeplatforminputcontextplugin.so)
  get_filename_component(folder ${plugin} DIRECTORY)
  file(INSTALL ${VANZET_QT_PLUGINS}/${plugin} DESTINATION ${plugins}/${folder} FOLLOW_SYMLINK_CHAIN)
  list(APPEND loaded ${VANZET_QT_PLUGINS}/${plugin})
endforeach()

file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${own_programs} LIBRARIES ${own_libraries} ${loaded} ${VANZET_LIBPQ}
  RESOLVED_DEPENDENCIES_VAR needed UNRESOLVED_DEPENDENCIES_VAR missing PRE_EXCLUDE_REGEXES ${of_system}
  POST_EXCLUDE_REGEXES "/${of_system}")
if(missing)
  message(FATAL_ERROR "these libraries are not on this machine: ${missing}")
endif()
foreach(library IN LISTS needed VANZET_LIBPQ)
  get_filename_component(name ${library} NAME)
  if(name MATCHES ${of_system})
    continue()
  endif()
  set(folder ${root}/lib/vanzet)
  if(name MATCHES ${of_display})
    string(APPEND folder /display)
  endif()
  file(REAL_PATH ${library} real)
  list(APPEND names ${name})
  file(MAKE_DIRECTORY ${folder})
  file(COPY_FILE ${real} ${folder}/${name} ONLY_IF_DIFFERENT)
endforeach()

# The licences of the libraries, as the packages have them that they come from.
list(TRANSFORM names PREPEND "*/")
execute_process(COMMAND dpkg -S ${names} OUTPUT_VARIABLE owners ERROR_QUIET)
string(REGEX MATCHALL "(^|\n)[^:\n]+" owners "${owners}")
list(TRANSFORM owners STRIP)
list(REMOVE_DUPLICATES owners)
foreach(owner IN LISTS owners)
  if(EXISTS /usr/share/doc/${owner}/copyright)
    file(INSTALL /usr/share/doc/${owner}/copyright DESTINATION ${CMAKE_INSTALL_PREFIX}/share/doc/vanzet/libraries
      RENAME ${owner} FOLLOW_SYMLINK_CHAIN)
  endif()
endforeach()

# Where Qt looks for its plug-ins, beside each program.
file(WRITE ${root}/bin/qt.conf "[Paths]\nPlugins = ../lib/vanzet/plugins\n")
