# SPDX-License-Identifier: MIT
# How tests are compiled, joined into programs, and registered with ctest.

add_library(quillon_test_support INTERFACE)
target_include_directories(quillon_test_support INTERFACE ${CMAKE_SOURCE_DIR}/tests)
target_compile_definitions(quillon_test_support INTERFACE
    QUILLON_CATALOGUE="${CMAKE_SOURCE_DIR}/data/device6.ini"
    QUILLON_EXAMPLES="${CMAKE_SOURCE_DIR}/examples")

# The tests' own code isn't checked for undefined behaviour: that finds little and takes time to
# compile.
add_library(quillon_test_options INTERFACE)
# Nor do their lines need debug information: a failing test names file and line itself.
target_compile_options(quillon_test_options INTERFACE -O0 -g0 -fno-sanitize=undefined)
target_link_libraries(quillon_test_options INTERFACE
    quillon_options quillon_fmt quillon_test_support GTest::gtest)

quillon_precompiled(quillon_test_headers LINK quillon_test_options
    HEADERS ${QUILLON_STANDARD_HEADERS} <gtest/gtest.h>)

# quillon_test_program(NAME PRECOMPILED target): a GoogleTest program without tests;
# quillon_add_tests adds them. ctest starts one process for each suite, because a process for each
# test would spend most of its time starting.
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

# quillon_add_tests(PROGRAM SOURCES a.cpp ... LINK target ...): adds the tests of one folder to a
# program.
function(quillon_add_tests program)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    target_sources(${program} PRIVATE ${ARG_SOURCES})
    target_link_libraries(${program} PRIVATE ${ARG_LINK})
endfunction()
