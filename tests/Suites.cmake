# Writes the ctest tests of a GoogleTest program, one for each suite that has tests that are not EXCLUDED
# ("" or a filter that begins with "-").
execute_process(COMMAND ${PROGRAM} --gtest_list_tests "--gtest_filter=*${EXCLUDED}" OUTPUT_VARIABLE LISTED
                COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\.[ \n]" SUITES "${LISTED}")
set(TESTS)
foreach(SUITE ${SUITES})
  string(REGEX REPLACE "[. \n]" "" SUITE "${SUITE}")
  string(APPEND TESTS "add_test([==[${PREFIX}${SUITE}]==] [==[${PROGRAM}]==] [==[--gtest_filter=${SUITE}.*${EXCLUDED}]==])\n"
                      "set_tests_properties([==[${PREFIX}${SUITE}]==] PROPERTIES ${PROPERTIES})\n")
endforeach()
string(REPLACE ";" " " TESTS "${TESTS}")
file(WRITE ${OUTPUT} "${TESTS}")
