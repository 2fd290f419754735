# The archive for users, which cpack makes: the module, stripped, the texts that a host may translate, and the pages
# that say how it is loaded and what it reads and writes.
install(TARGETS vanzet_module RUNTIME DESTINATION .)
install(FILES LICENSE CHANGELOG.md DESTINATION .)
install(FILES docs/windows.md docs/view.md DESTINATION docs)
install(DIRECTORY docs/formats DESTINATION docs)
install(DIRECTORY share/messages share/samples DESTINATION share)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME vanzet)
set(CPACK_PACKAGE_FILE_NAME vanzet-${PROJECT_VERSION}-windows-x86_64)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
include(CPack)
