# The contour library for other programs: libvanzet-geometry.so, its headers, and what finds them. vanzet itself links
# the static library. The exports are those of the namespace; a version is compatible with others of its first two numbers.
# docs/contour-library.md says how it is used.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

add_library(vanzet_contour_library SHARED $<TARGET_OBJECTS:vanzet_geometry>)
set_target_properties(vanzet_contour_library PROPERTIES OUTPUT_NAME vanzet-geometry EXPORT_NAME geometry LINKER_LANGUAGE CXX
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
target_link_libraries(vanzet_contour_library PRIVATE vanzet_host vanzet_platform vanzet_options)
target_compile_features(vanzet_contour_library INTERFACE cxx_std_20)
target_compile_options(vanzet_contour_library INTERFACE -ffp-contract=off)
target_include_directories(vanzet_contour_library INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vanzet>)

set(exports ${PROJECT_BINARY_DIR}/contour_library.map)
file(CONFIGURE OUTPUT ${exports} CONTENT "{ global: _ZN8geometry*; _ZNK8geometry*; _ZT?N8geometry*; local: *; };\n")
target_link_options(vanzet_contour_library PRIVATE LINKER:--version-script=${exports} LINKER:-z,defs)

set(package ${PROJECT_BINARY_DIR}/package)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/vanzet)
file(RELATIVE_PATH PREFIX_OF_PKGCONFIG /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/vanzet-geometry.pc.in ${package}/vanzet-geometry.pc @ONLY)
configure_package_config_file(cmake/vanzet-config.cmake.in ${package}/vanzet-config.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${package}/vanzet-config-version.cmake COMPATIBILITY SameMinorVersion)

install(TARGETS vanzet_contour_library EXPORT vanzet-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT geometry NAMELINK_COMPONENT geometry-dev)
install(EXPORT vanzet-targets NAMESPACE vanzet:: DESTINATION ${package_folder} COMPONENT geometry-dev)
install(FILES ${package}/vanzet-config.cmake ${package}/vanzet-config-version.cmake
  DESTINATION ${package_folder} COMPONENT geometry-dev)
install(FILES ${package}/vanzet-geometry.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT geometry-dev)
install(DIRECTORY src/geometry DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vanzet COMPONENT geometry-dev
  FILES_MATCHING PATTERN "*.h" REGEX "geometry/[a-z]+$" EXCLUDE PATTERN "host_matrix_vdm.h" EXCLUDE)
