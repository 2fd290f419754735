# Man pages out of the pages in docs/, so that there is one text of each: vanzet(1) tells the commands,
# vanzet-window(1) and vanzet-exchange(1) the other programs, vanzet-macro(7) the macro language, vanzet-FORMAT(5) each
# text format.
find_program(MD2MAN go-md2man REQUIRED)

function(vanzet_man_page source name section)
  set(page ${PROJECT_BINARY_DIR}/share/man/man${section}/${name}.${section})
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${source} -DPAGE=${page} -DNAME=${name} -DSECTION=${section} -DVERSION=${PROJECT_VERSION} -DMD2MAN=${MD2MAN}
            -P ${PROJECT_SOURCE_DIR}/cmake/man_page.cmake
    DEPENDS ${source} ${PROJECT_SOURCE_DIR}/cmake/man_page.cmake ${PROJECT_SOURCE_DIR}/cmake/man_page.awk
    COMMAND gzip -9nkf ${page}
    COMMENT "Making ${name}(${section})" VERBATIM)
  set_property(GLOBAL APPEND PROPERTY VANZET_MAN_PAGES ${page})
endfunction()

vanzet_man_page(${PROJECT_SOURCE_DIR}/docs/command-line.md vanzet 1)
vanzet_man_page(${PROJECT_SOURCE_DIR}/docs/macro-language.md vanzet-macro 7)
file(GLOB formats CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/formats/*.md)
list(FILTER formats EXCLUDE REGEX "(README|macro-language)\\.md$")
foreach(format IN LISTS formats)
  get_filename_component(name ${format} NAME_WE)
  vanzet_man_page(${format} vanzet-${name} 5)
endforeach()
foreach(program IN ITEMS vanzet-window vanzet-exchange)
  vanzet_man_page(${PROJECT_SOURCE_DIR}/docs/programs/${program}.md ${program} 1)
endforeach()
get_property(pages GLOBAL PROPERTY VANZET_MAN_PAGES)
add_custom_target(man ALL DEPENDS ${pages})

install(DIRECTORY ${PROJECT_BINARY_DIR}/share/man/ DESTINATION ${CMAKE_INSTALL_MANDIR} FILES_MATCHING PATTERN "*.gz")
