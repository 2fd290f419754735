# Installs the contour library into FOLDER, and builds and runs the example of PAGE as the page says: with CMake and with
# pkg-config. Another version must be refused.
#   BUILD, FOLDER, PAGE, COMPILER, LIBDIR

function(run folder)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${folder} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  set(output "${output}" PARENT_SCOPE)
endfunction()

# The text of the page between a line of three backticks with that word and the next such line.
function(page_block word text)
  file(READ ${PAGE} page)
  string(FIND "${page}" "\n```${word}\n" begin)
  if(begin EQUAL -1)
    message(FATAL_ERROR "${PAGE} has no block '${word}'")
  endif()
  string(LENGTH "\n```${word}\n" length)
  math(EXPR begin "${begin} + ${length}")
  string(SUBSTRING "${page}" ${begin} -1 page)
  string(FIND "${page}" "```" end)
  string(SUBSTRING "${page}" 0 ${end} page)
  set(${text} "${page}" PARENT_SCOPE)
endfunction()

function(expect_output way)
  if(printed STREQUAL "" OR NOT printed STREQUAL output)
    message(FATAL_ERROR "${way}: the example printed '${output}' instead of '${printed}'")
  endif()
endfunction()

file(REMOVE_RECURSE ${FOLDER})
set(prefix ${FOLDER}/prefix)
set(source ${FOLDER}/source)
file(MAKE_DIRECTORY ${source})
foreach(component IN ITEMS geometry geometry-dev)
  run(${BUILD} ${CMAKE_COMMAND} --install ${BUILD} --component ${component} --prefix ${prefix})
endforeach()

page_block(cpp program)
page_block(cmake lists)
page_block(sh command)
file(WRITE ${source}/main.cpp "${program}")
file(WRITE ${source}/CMakeLists.txt "${lists}")
# The last block is what the program prints.
file(READ ${PAGE} page)
string(REGEX MATCH "prints:\n\n```\n([^`]*)```" found "${page}")
set(printed "${CMAKE_MATCH_1}")

set(with_cmake ${CMAKE_COMMAND} -G "Unix Makefiles" -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${prefix})
run(${source} ${with_cmake} -S . -B build)
run(${source} ${CMAKE_COMMAND} --build build)
run(${source} build/shrink)
expect_output("CMake")

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
set(ENV{LD_LIBRARY_PATH} ${prefix}/${LIBDIR}:$ENV{LD_LIBRARY_PATH})
run(${source} sh -c "${command}")
run(${source} ./shrink)
expect_output("pkg-config")

file(WRITE ${FOLDER}/later/CMakeLists.txt
  "cmake_minimum_required(VERSION 3.25)\nproject(later LANGUAGES NONE)\nfind_package(vanzet 99.0 REQUIRED)\n")
execute_process(COMMAND ${with_cmake} -S later -B later/build WORKING_DIRECTORY ${FOLDER}
  OUTPUT_QUIET ERROR_VARIABLE refusal RESULT_VARIABLE failed)
if(NOT failed OR NOT refusal MATCHES "99.0")
  message(FATAL_ERROR "a version that is not installed was found: ${refusal}")
endif()
file(REMOVE_RECURSE ${FOLDER})
