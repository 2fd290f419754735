# One man page: the heading of the Markdown page becomes the page's title line, and its first words the NAME.
#   SOURCE, PAGE, NAME, SECTION, VERSION, MD2MAN
file(READ ${SOURCE} text)
string(REGEX MATCH "^# ([^\n]*)\n" heading "${text}")
set(title ${CMAKE_MATCH_1})
string(LENGTH "${heading}" length)
string(SUBSTRING "${text}" ${length} -1 body)
# A page has no links to its neighbours, only their names.
string(REGEX REPLACE "!?\\[([^]\n]*)\\]\\(([^):]*)\\)" "\\1" body "${body}")
get_filename_component(folder ${PAGE} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
string(TOUPPER ${NAME} upper)
# The day of the build, or that of SOURCE_DATE_EPOCH.
string(TIMESTAMP day "%Y-%m-%d" UTC)
file(WRITE ${PAGE}.md "% \"${upper}\" \"${SECTION}\" \"${day}\" \"vanzet ${VERSION}\" \"vanzet manual\"\n\n# NAME\n\n${NAME} - ${title}\n\n# DESCRIPTION\n${body}")
execute_process(COMMAND ${MD2MAN} -in=${PAGE}.md -out=${PAGE}.raw COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND awk -f ${CMAKE_CURRENT_LIST_DIR}/man_page.awk ${PAGE}.raw OUTPUT_FILE ${PAGE} COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${PAGE}.md ${PAGE}.raw)
# The first line has the reader of the page set its tables.
file(READ ${PAGE} page)
file(WRITE ${PAGE} "'\\\" t\n${page}")
