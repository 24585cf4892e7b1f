# SPDX-License-Identifier: MIT
# How every library of the project is declared and compiled.

# lld links the programs in a fraction of the default linker's time.
find_program(QUILLON_LLD ld.lld)
if(QUILLON_LLD)
    add_link_options(-fuse-ld=lld)
endif()

add_library(quillon_options INTERFACE)
target_compile_options(quillon_options INTERFACE -Wall -Wextra -Wconversion -Wshadow=local -Werror)
# Qt's targets require it. With it everywhere, they can share the core's precompiled headers.
target_compile_options(quillon_options INTERFACE -fPIC)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 warns that std::string's own memcpy overlaps, which is wrong (GCC bug 105651).
    target_compile_options(quillon_options INTERFACE -Wno-restrict)
endif()
target_include_directories(quillon_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

# {fmt} as the shared library. Its format strings are checked at compile time all the same.
add_library(quillon_fmt INTERFACE)
target_link_libraries(quillon_fmt INTERFACE fmt::fmt)

# quillon_precompiled(NAME LINK target ... HEADERS header ...): headers that are compiled once and
# shared by all targets with the same options. Only headers of other projects belong here. An edit
# of a header of ours must rebuild what includes it and nothing else.
file(WRITE ${CMAKE_BINARY_DIR}/precompiled.cpp "// Gives a target of precompiled headers a source.\n")
function(quillon_precompiled name)
    cmake_parse_arguments(ARG "" "" "LINK;HEADERS" ${ARGN})
    add_library(${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled.cpp)
    target_link_libraries(${name} PRIVATE quillon_options quillon_fmt ${ARG_LINK})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

set(QUILLON_STANDARD_HEADERS
    <algorithm> <array> <charconv> <chrono> <cstddef> <cstdint> <filesystem> <fstream> <functional>
    <map> <memory> <optional> <set> <span> <sstream> <string> <string_view> <system_error> <utility>
    <vector> <fmt/format.h>)
quillon_precompiled(quillon_core_headers HEADERS ${QUILLON_STANDARD_HEADERS})

# quillon_library(NAME SOURCES a.cpp ... LINK target ... PRECOMPILED target): one static library. LINK
# names the libraries that it may include. PRECOMPILED names its precompiled headers (default: the
# core's).
function(quillon_library name)
    cmake_parse_arguments(ARG "" "PRECOMPILED" "SOURCES;LINK" ${ARGN})
    if(NOT ARG_PRECOMPILED)
        set(ARG_PRECOMPILED quillon_core_headers)
    endif()
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC quillon_options quillon_fmt ${ARG_LINK})
    target_precompile_headers(${name} REUSE_FROM ${ARG_PRECOMPILED})
endfunction()
