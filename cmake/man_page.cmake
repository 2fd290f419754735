# One man page: the heading of the Markdown page becomes the page's title line, and its first words the NAME.
#   SOURCE, PAGE, NAME, SECTION, MD2MAN
file(READ ${SOURCE} text)
string(REGEX MATCH "^# ([^\n]*)\n" heading "${text}")
set(title ${CMAKE_MATCH_1})
string(LENGTH "${heading}" length)
string(SUBSTRING "${text}" ${length} -1 body)
get_filename_component(folder ${PAGE} DIRECTORY)
file(MAKE_DIRECTORY ${folder})
string(TOUPPER ${NAME} upper)
file(WRITE ${PAGE}.md "% \"${upper}\" \"${SECTION}\" \"\" \"vanzet\" \"vanzet manual\"\n\n# NAME\n\n${NAME} - ${title}\n\n# DESCRIPTION\n${body}")
execute_process(COMMAND ${MD2MAN} -in=${PAGE}.md -out=${PAGE} COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${PAGE}.md)
# The first line has the reader of the page set its tables.
file(READ ${PAGE} page)
file(WRITE ${PAGE} "'\\\" t\n${page}")
