# Tells CTest the suites of a test program; run each time that is built, with PROGRAM, OUTPUT and ENVIRONMENT given.
# Starting the program takes a third of a test's time: it is started once for each suite.
execute_process(COMMAND ${PROGRAM} --gtest_list_tests OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n[^ \n]+\\." lines "\n${listing}")
foreach(line ${lines})
  string(REGEX MATCH "[^ \n]+[^.\n]" suite "${line}")
  string(APPEND text "add_test(${suite} ${PROGRAM} --gtest_brief=1 --gtest_filter=${suite}.*)\n"
    "set_tests_properties(${suite} PROPERTIES TIMEOUT 300 ENVIRONMENT ${ENVIRONMENT})\n")
endforeach()
file(WRITE ${OUTPUT} "${text}")
