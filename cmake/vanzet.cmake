# House rules for targets: one a folder, sources listed, arrows one way.

# What our own code is compiled with, and nothing else is.
add_library(vanzet_options INTERFACE)
target_compile_features(vanzet_options INTERFACE cxx_std_20)
target_compile_options(vanzet_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-align -Wunused -Wformat=2
  $<$<BOOL:${VANZET_WERROR}>:-Werror>)
# GCC 12 takes a text plus a text for overlapping copies once it inlines more than -O2 does, as builds with flags of
# their own may.
if(NOT VANZET_WERROR AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(vanzet_options INTERFACE -Wno-restrict)
endif()
# What a fault of our own, or of a library that reads foreign files, cannot be used for: overwritten return addresses
# and buffers of the C library are noticed, and what links the program to its libraries is read-only. The sanitizers
# notice more, and -O0 has no checked functions.
if(VANZET_HARDEN AND NOT VANZET_SANITIZE AND NOT VANZET_COVERAGE AND NOT WIN32)
  target_compile_options(vanzet_options INTERFACE -fstack-protector-strong
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE>
    $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-D_FORTIFY_SOURCE=2>)
  target_compile_definitions(vanzet_options INTERFACE _GLIBCXX_ASSERTIONS)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
    target_compile_options(vanzet_options INTERFACE -fcf-protection)
  endif()
  target_link_options(vanzet_options INTERFACE LINKER:-z,relro LINKER:-z,now)
endif()
if(VANZET_SANITIZE)
  # The checks of the sanitizers make the compiler see uses of unset values that are not there.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(vanzet_options INTERFACE ${sanitizers} $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(vanzet_options INTERFACE ${sanitizers})
endif()
if(VANZET_FUZZ)
  target_compile_options(vanzet_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(VANZET_COVERAGE)
  target_compile_options(vanzet_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(vanzet_options INTERFACE --coverage)
endif()

# The library vanzet_FOLDER from the sources of the calling folder.
#   INCLUDE_ROOT  the folder that its headers are included from
#   NEEDS         the folders below it in the arrows
#   USES          libraries from outside
function(vanzet_library folder)
  cmake_parse_arguments(ARG "" "INCLUDE_ROOT" "SOURCES;NEEDS;USES" ${ARGN})
  add_library(vanzet_${folder} STATIC ${ARG_SOURCES})
  set_target_properties(vanzet_${folder} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_include_directories(vanzet_${folder} PUBLIC ${ARG_INCLUDE_ROOT})
  list(TRANSFORM ARG_NEEDS PREPEND vanzet_)
  target_link_libraries(vanzet_${folder} PUBLIC ${ARG_NEEDS} ${ARG_USES} PRIVATE vanzet_options)
endfunction()

# The library libvanzet-NAME.so, of which others see the function vanzetNAME alone. A program loads it when it first
# needs it; the target is vanzet_NAME_loaded.
function(vanzet_loaded_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;NEEDS;USES" ${ARGN})
  set(target vanzet_${name}_loaded)
  add_library(${target} MODULE ${ARG_SOURCES})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME vanzet-${name})
  list(TRANSFORM ARG_NEEDS PREPEND vanzet_)
  target_link_libraries(${target} PRIVATE ${ARG_NEEDS} ${ARG_USES} vanzet_options)
  string(SUBSTRING ${name} 0 1 first)
  string(SUBSTRING ${name} 1 -1 rest)
  string(TOUPPER ${first} first)
  set(exports ${CMAKE_CURRENT_BINARY_DIR}/${name}.map)
  file(CONFIGURE OUTPUT ${exports} CONTENT "{ global: vanzet@first@@rest@; local: *; };\n" @ONLY)
  target_link_options(${target} PRIVATE LINKER:--version-script=${exports})
  if(NOT VANZET_SANITIZE)
    target_link_options(${target} PRIVATE LINKER:-z,defs)
  endif()
  install(TARGETS ${target} LIBRARY DESTINATION lib/vanzet)
endfunction()

# What tests are compiled with, of which there are many: little optimisation, none under the sanitizers, and undefined
# behaviour is looked for in what they test, not in the tests themselves. Of options that disagree the last one counts,
# and those of a target precede those of what it links.
add_library(vanzet_test_options INTERFACE)
target_link_libraries(vanzet_test_options INTERFACE vanzet_options)
if(VANZET_SANITIZE)
  add_library(vanzet_last_test_options INTERFACE)
  target_compile_options(vanzet_last_test_options INTERFACE -O0 -fno-sanitize=undefined)
  target_link_libraries(vanzet_test_options INTERFACE vanzet_last_test_options)
else()
  target_compile_options(vanzet_test_options INTERFACE -O1)
endif()

# The test program NAME_test; each of its tests is one test of ctest.
#   NEEDS        the folders under test
#   ENVIRONMENT  what the tests find in their environment
#   NUMBERS      a filter of the tests that read or print numbers; they run again under a locale with a decimal comma
function(vanzet_test name)
  cmake_parse_arguments(ARG "" "NUMBERS" "SOURCES;NEEDS;USES;ENVIRONMENT" ${ARGN})
  add_executable(${name}_test ${ARG_SOURCES})
  list(TRANSFORM ARG_NEEDS PREPEND vanzet_)
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name}_test PRIVATE ${ARG_NEEDS} ${ARG_USES} vanzet_test_options vanzet_test_main)
  # A target that uses Qt is compiled with other flags than the headers were read with.
  if(NOT ARG_USES MATCHES "Qt6")
    target_precompile_headers(${name}_test REUSE_FROM vanzet_test_headers)
  endif()
  gtest_discover_tests(${name}_test DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "${ARG_ENVIRONMENT}")
  # No number may depend on the locale. The plain suite shows it; a rerun under the sanitizers would show nothing more.
  if(ARG_NUMBERS AND NOT VANZET_SANITIZE)
    add_test(NAME ${name}.UnderGermanLocale COMMAND ${name}_test --gtest_brief=1 --gtest_filter=${ARG_NUMBERS})
    set(german VANZET_TEST_LOCALE=de_DE.UTF-8 LC_ALL=de_DE.UTF-8 LOCPATH=${PROJECT_BINARY_DIR}/locales)
    set_tests_properties(${name}.UnderGermanLocale PROPERTIES TIMEOUT 600 ENVIRONMENT "${german};${ARG_ENVIRONMENT}")
  endif()
endfunction()
