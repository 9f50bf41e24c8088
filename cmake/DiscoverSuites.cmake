# cmake -DPROGRAM=... [-DRUN_BY=...] -DPROPERTIES=... -DMADE=... -P DiscoverSuites.cmake: asks a test program for its suites
# and writes what ctest reads: a test for each suite. A program takes longer to start than most cases to run. RUN_BY runs
# programs that were made for another system, and takes a while to set itself up.
execute_process(COMMAND ${RUN_BY} ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY TIMEOUT 120)
string(REGEX MATCHALL "[^\r\n]+" lines "${listed}")
set(command "")
foreach(word IN LISTS RUN_BY PROGRAM)
    string(APPEND command " [==[${word}]==]")
endforeach()
set(made "")
foreach(line IN LISTS lines)
    if(line MATCHES "^([^ .]+)\\.")
        set(suite ${CMAKE_MATCH_1})
        string(APPEND made "add_test([==[${suite}]==]${command} [==[--gtest_filter=${suite}.*]==])\n"
            "set_tests_properties([==[${suite}]==] PROPERTIES ${PROPERTIES})\n")
    endif()
endforeach()
if(NOT made)
    message(FATAL_ERROR "${PROGRAM} has no tests.")
endif()
file(WRITE ${MADE} "${made}")
