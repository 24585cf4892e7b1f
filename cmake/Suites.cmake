# SPDX-License-Identifier: MIT
# Makes one test of each suite of a GoogleTest program. ctest reads this file when it starts.
#
# `program` holds the path of the program.
get_filename_component(name ${program} NAME)
execute_process(COMMAND ${program} --gtest_list_tests
    OUTPUT_VARIABLE listed ERROR_VARIABLE trouble RESULT_VARIABLE result TIMEOUT 60)
if(NOT result EQUAL 0)
    # A program that was not built or can't run becomes a test that fails.
    message(STATUS "${name}: ${result} ${trouble}")
    add_test(${name} ${program} --gtest_list_tests)
    return()
endif()

# A suite is a line such as "read_stream." or "all/end_code.  # TypeParam = ...". Its tests follow,
# each indented by two blanks. Comments are removed first, because a "[" or ";" in them would change
# how CMake splits the text into a list.
string(REGEX REPLACE "#[^\n]*" "" listed "${listed}")
string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\.[ ]*(\n  [^\n]*)+" suites "${listed}")
foreach(suite IN LISTS suites)
    string(REGEX MATCH "[A-Za-z0-9_/]+" suite_name "${suite}")
    string(REGEX MATCHALL "\n  " tests "${suite}")
    list(LENGTH tests count)
    add_test("${name}.${suite_name}" ${program} --gtest_brief=1 "--gtest_filter=${suite_name}.*")
    # The suites with the most tests start first, so that no long one runs alone at the end.
    # Few tests may take long: a matrix started last would run on alone.
    set(cost ${count})
    if(suite_name MATCHES "matrix|every_device")
        set(cost 10000)
    endif()
    set_tests_properties("${name}.${suite_name}" PROPERTIES TIMEOUT 300 COST ${cost})
endforeach()
