# SPDX-License-Identifier: MIT
# How tests are compiled, joined into programs, and made known to ctest.

add_library(quillon_test_support INTERFACE)
target_include_directories(quillon_test_support INTERFACE ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(quillon_test_support INTERFACE
    QUILLON_CATALOGUE="${CMAKE_SOURCE_DIR}/data/device6.ini"
    QUILLON_EXAMPLES="${CMAKE_SOURCE_DIR}/examples")

# Checking the tests' own arithmetic for undefined behaviour costs more than it shows.
add_library(quillon_test_options INTERFACE)
target_compile_options(quillon_test_options INTERFACE -O0 -fno-sanitize=undefined)
target_link_libraries(quillon_test_options INTERFACE
    quillon_options quillon_fmt quillon_test_support GTest::gtest)

quillon_precompiled(quillon_test_headers LINK quillon_test_options
    HEADERS ${QUILLON_STANDARD_HEADERS} <gtest/gtest.h>)

# quillon_test_program(NAME PRECOMPILED target): a GoogleTest program, to be filled by
# quillon_add_tests. ctest runs each of its suites in a process: one process for each test would
# spend most of its time on starting.
function(quillon_test_program name)
    cmake_parse_arguments(ARG "" "PRECOMPILED" "" ${ARGN})
    if(NOT ARG_PRECOMPILED)
        set(ARG_PRECOMPILED quillon_test_headers)
    endif()
    add_executable(${name})
    target_link_libraries(${name} PRIVATE quillon_test_options GTest::gtest_main)
    target_precompile_headers(${name} REUSE_FROM ${ARG_PRECOMPILED})
    set(suites ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
    file(GENERATE OUTPUT ${suites} CONTENT
"set(program [==[$<TARGET_FILE:${name}>]==])
include([==[${CMAKE_SOURCE_DIR}/cmake/Suites.cmake]==])
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${suites})
endfunction()

# quillon_add_tests(PROGRAM SOURCES a.cpp ... LINK target ...): the tests of one folder, as a part of
# that program.
function(quillon_add_tests program)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    target_sources(${program} PRIVATE ${ARG_SOURCES})
    target_link_libraries(${program} PRIVATE ${ARG_LINK})
endfunction()
