# SPDX-License-Identifier: MIT
# How every target of the project is compiled, and how tests are declared.

add_library(quillon_options INTERFACE)
target_compile_options(quillon_options INTERFACE -Wall -Wextra -Wconversion -Wshadow=local -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes std::string's own memcpy for an overlapping one (its bug 105651).
    target_compile_options(quillon_options INTERFACE -Wno-restrict)
endif()
target_include_directories(quillon_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

# {fmt} checks its format strings when compiled; its run-time part is the shared library.
add_library(quillon_fmt INTERFACE)
target_link_libraries(quillon_fmt INTERFACE fmt::fmt)

# quillon_library(NAME SOURCES a.cpp ... LINK target ... PRECOMPILE header ...): one static library,
# its arrows in LINK.
function(quillon_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRECOMPILE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC quillon_options quillon_fmt ${ARG_LINK})
    if(ARG_PRECOMPILE)
        target_precompile_headers(${name} PRIVATE ${ARG_PRECOMPILE})
    endif()
endfunction()

# quillon_add_test(NAME SOURCES a.cpp ... LINK target ... PRECOMPILE header ...): a GoogleTest program,
# each test known to ctest. PRECOMPILE: what all its sources include and takes long to compile.
function(quillon_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;PRECOMPILE" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE quillon_options quillon_fmt ${ARG_LINK} GTest::gtest_main)
    # The framework's headers cost more than most tests, and checking the tests' own arithmetic for
    # undefined behaviour more than it tells.
    target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <fmt/format.h> <string> <vector>
        ${ARG_PRECOMPILE})
    target_compile_options(${name} PRIVATE -O0 -fno-sanitize=undefined)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
