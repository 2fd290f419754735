# CHANGELOG.md as a change log of Debian, compressed. All that is in it is of this version.
#   SOURCE, CHANGELOG, VERSION, CONTACT
string(TIMESTAMP seconds "%s" UTC)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(seconds $ENV{SOURCE_DATE_EPOCH})
endif()
execute_process(COMMAND date -u -R -d @${seconds} OUTPUT_VARIABLE day OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND awk -f ${CMAKE_CURRENT_LIST_DIR}/changelog.awk ${SOURCE} OUTPUT_VARIABLE changes COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${CHANGELOG} "vanzet (${VERSION}) unstable; urgency=medium\n\n${changes}\n -- ${CONTACT}  ${day}\n")
execute_process(COMMAND gzip -9nf ${CHANGELOG} COMMAND_ERROR_IS_FATAL ANY)
