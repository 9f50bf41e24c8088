# cmake -DPROGRAM=... -DPROPERTIES=... -DMADE=... -P DiscoverSuites.cmake: asks a test program for its suites and writes what
# ctest reads: a test for each suite. A program takes longer to start than most cases to run.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY TIMEOUT 60)
string(REGEX MATCHALL "[^\n]+" lines "${listed}")
set(made "")
foreach(line IN LISTS lines)
    if(line MATCHES "^([^ .]+)\\.")
        set(suite ${CMAKE_MATCH_1})
        string(APPEND made "add_test([==[${suite}]==] [==[${PROGRAM}]==] [==[--gtest_filter=${suite}.*]==])\n"
            "set_tests_properties([==[${suite}]==] PROPERTIES ${PROPERTIES})\n")
    endif()
endforeach()
if(NOT made)
    message(FATAL_ERROR "${PROGRAM} has no tests.")
endif()
file(WRITE ${MADE} "${made}")
