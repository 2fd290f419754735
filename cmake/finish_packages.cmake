# Puts right what cpack leaves wrong in Debian packages: calls of ldconfig where a trigger is asked for or nothing is
# needed, check sums of debug information under paths of the build folder, debug packages without papers. VANZET_DEB_COMPRESSION in the environment is dpkg-deb's -Z; xz without it.
#   CPACK_PACKAGE_FILES, CPACK_TEMPORARY_DIRECTORY

function(run folder)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The papers of a debug package are those of the package that it is about.
function(link_papers tree name)
  string(REPLACE "-dbgsym" "" about ${name})
  file(MAKE_DIRECTORY ${tree}/usr/share/doc)
  file(CREATE_LINK ${about} ${tree}/usr/share/doc/${name} SYMBOLIC)
endfunction()

function(finish package compression)
  get_filename_component(name ${package} NAME)
  string(REGEX REPLACE "_.*" "" name ${name})
  set(tree ${CPACK_TEMPORARY_DIRECTORY}/finished/${name})
  file(REMOVE_RECURSE ${tree})
  file(MAKE_DIRECTORY ${CPACK_TEMPORARY_DIRECTORY}/finished)
  run(${CPACK_TEMPORARY_DIRECTORY} dpkg-deb -R ${package} ${tree})
  file(REMOVE ${package} ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
  if(name MATCHES "-dbgsym$")
    link_papers(${tree} ${name})
  endif()
  run(${tree} sh -c "find usr -type f -print0 | LC_ALL=C sort -z | xargs -0 md5sum >DEBIAN/md5sums")
  run(${tree} dpkg-deb --root-owner-group -Z${compression} -b ${tree} ${package})
  file(REMOVE_RECURSE ${tree})
endfunction()

set(compression xz)
if(DEFINED ENV{VANZET_DEB_COMPRESSION})
  set(compression $ENV{VANZET_DEB_COMPRESSION})
endif()
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  if(package MATCHES "[.]d?deb$")
    finish(${package} ${compression})
  endif()
endforeach()
