# The Debian packages and the archive that run anywhere, which cpack makes from a release build:
#   cpack -G DEB   vanzet, libvanzet-geometry0.1, libvanzet-geometry-dev, and the debug information of the first two
#   cpack -G TGZ   the program with the libraries that it needs, to be unpacked in any folder
# tools/check-packages makes and checks them.
set(abi ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(geometry_package libvanzet-geometry${abi})
vanzet_papers(${geometry_package} geometry)
vanzet_papers(libvanzet-geometry-dev geometry-dev)
# Libraries have one place under any prefix, and programs for another processor are not built against them.
file(CONFIGURE OUTPUT ${made}/libvanzet-geometry-dev
  CONTENT "libvanzet-geometry-dev: pkg-config-unavailable-for-cross-compilation [usr/lib/pkgconfig/vanzet-geometry.pc]\n")
install(FILES ${made}/libvanzet-geometry-dev DESTINATION share/lintian/overrides COMPONENT geometry-dev)

find_library(VANZET_LIBPQ libpq.so.5)
find_path(VANZET_QT_PLUGINS platforms/libqxcb.so HINTS /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/qt6/plugins /usr/lib/qt6/plugins)

set(CPACK_PACKAGE_NAME vanzet)
set(CPACK_PACKAGE_CONTACT "${VANZET_CONTACT}")
set(CPACK_PACKAGE_VENDOR "The vanzet authors")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/package_kinds.cmake)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/packages)
set(CPACK_THREADS 0)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${VANZET_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The finished packages are compressed; cpack's own are thrown away.
set(CPACK_DEBIAN_COMPRESSION_TYPE none)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/finish_packages.cmake)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME vanzet)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PROGRAM_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "libgl1-mesa-dri, libpq5, qt6-translations-l10n")
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "clamping equipment of turning and mill-turn machines
vanzet defines what holds the work on a turning or mill-turn machine, for its
CAM system: the chucks, collets, mandrels, face drivers and jaws of each
spindle, the tailstock centre and the steady rest, with the raw part, the
finished part and the datum. It makes the models that the machine simulation
needs, checks set-ups for clashes, draws them and exports them as solids.

The package has the command line, the window, and the module that a CAM system
loads.")

set(CPACK_DEBIAN_GEOMETRY_PACKAGE_NAME ${geometry_package})
set(CPACK_DEBIAN_GEOMETRY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_GEOMETRY_DEBUGINFO_PACKAGE ON)
file(CONFIGURE OUTPUT ${made}/triggers CONTENT "activate-noawait ldconfig\n")
file(CONFIGURE OUTPUT ${made}/shlibs CONTENT "libvanzet-geometry ${abi} ${geometry_package} (>= ${abi}.0)\n")
set(CPACK_DEBIAN_GEOMETRY_PACKAGE_CONTROL_EXTRA ${made}/triggers ${made}/shlibs)
set(CPACK_COMPONENT_GEOMETRY_DESCRIPTION "plane contours of lines and arcs: shared library
A library for plane contours of lines and arcs: lengths, areas, nearest
points, crossings, offsets, trims, blends and regions. Arcs stay arcs.

This package has the library that programs are run with.")

set(CPACK_DEBIAN_GEOMETRY-DEV_PACKAGE_NAME libvanzet-geometry-dev)
set(CPACK_DEBIAN_GEOMETRY-DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_GEOMETRY-DEV_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_GEOMETRY-DEV_PACKAGE_DEPENDS "${geometry_package} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_GEOMETRY-DEV_DESCRIPTION "plane contours of lines and arcs: development files
A library for plane contours of lines and arcs: lengths, areas, nearest
points, crossings, offsets, trims, blends and regions. Arcs stay arcs.

This package has the headers, the CMake package and the pkg-config file.")

# The archive takes along the libraries that the programs are linked with or load.
install(CODE "
  set(VANZET_LIBPQ \"${VANZET_LIBPQ}\")
  set(VANZET_QT_PLUGINS \"${VANZET_QT_PLUGINS}\")
  set(own_programs \"$<TARGET_FILE:vanzet>;$<TARGET_FILE:vanzet-window>;$<TARGET_FILE:vanzet-exchange>\")
  set(own_libraries \"$<TARGET_FILE:vanzet_module>;$<TARGET_FILE:vanzet_view_qt_library>\"
    \"$<TARGET_FILE:vanzet_solids_loaded>;$<TARGET_FILE:vanzet_png_loaded>\")"
  COMPONENT libraries EXCLUDE_FROM_ALL)
install(SCRIPT cmake/bundle.cmake COMPONENT libraries EXCLUDE_FROM_ALL)
include(CPack)
