# What the desktop and the shells know of vanzet: menu entry, icons, types of files, page in the software centre,
# completions; and what a package has to say of itself: licence and changes.
set(VANZET_HOMEPAGE "https://vanzet.example/" CACHE STRING "where the sources are published; ends with a slash")
set(VANZET_CONTACT "vanzet authors <vanzet@vanzet.example>" CACHE STRING "who answers for the packages")
set(APPSTREAM_ID "example.vanzet.vanzet" CACHE STRING "the program's name in software centres: the reversed domain of its homepage")
string(TIMESTAMP DAY "%Y-%m-%d" UTC)

set(desktop ${PROJECT_SOURCE_DIR}/share/desktop)
set(made ${PROJECT_BINARY_DIR}/desktop)
configure_file(${desktop}/vanzet.metainfo.xml.in ${made}/${APPSTREAM_ID}.metainfo.xml @ONLY)
install(FILES ${made}/${APPSTREAM_ID}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${desktop}/vanzet.desktop DESTINATION share/applications)
install(FILES ${desktop}/vanzet.xml DESTINATION share/mime/packages)

set(icons share/icons/hicolor)
install(FILES ${desktop}/vanzet.svg DESTINATION ${icons}/scalable/apps)
foreach(size IN ITEMS 16 32 48 64 128)
  install(FILES ${desktop}/vanzet-${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME vanzet.png)
endforeach()
install(FILES ${desktop}/application-x-vanzet-vdm.svg ${desktop}/application-x-vanzet-project.svg
  DESTINATION ${icons}/scalable/mimetypes)

# The program writes the completions itself.
function(vanzet_completion shell file folder)
  set(script ${made}/${shell}/${file})
  file(MAKE_DIRECTORY ${made}/${shell})
  add_custom_command(OUTPUT ${script} COMMAND vanzet completion ${shell} > ${script} DEPENDS vanzet
    COMMENT "Writing the completion for ${shell}" VERBATIM)
  add_custom_target(completion_${shell} ALL DEPENDS ${script})
  install(FILES ${script} DESTINATION ${folder})
endfunction()
vanzet_completion(bash vanzet share/bash-completion/completions)
vanzet_completion(zsh _vanzet share/zsh/vendor-completions)
vanzet_completion(fish vanzet.fish share/fish/vendor_completions.d)

# The change log in the form of Debian's.
set(changelog ${made}/changelog.gz)
add_custom_command(OUTPUT ${changelog}
  COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR}/CHANGELOG.md -DCHANGELOG=${made}/changelog
          -DVERSION=${PROJECT_VERSION} -DCONTACT=${VANZET_CONTACT} -P ${PROJECT_SOURCE_DIR}/cmake/changelog.cmake
  DEPENDS CHANGELOG.md cmake/changelog.cmake cmake/changelog.awk COMMENT "Writing the change log" VERBATIM)
add_custom_target(changelog ALL DEPENDS ${changelog})

# The papers of one package, in the folder of its name.
function(vanzet_papers package component)
  install(FILES ${PROJECT_SOURCE_DIR}/share/desktop/copyright ${PROJECT_BINARY_DIR}/desktop/changelog.gz
    DESTINATION share/doc/${package} COMPONENT ${component})
endfunction()
vanzet_papers(vanzet program)
