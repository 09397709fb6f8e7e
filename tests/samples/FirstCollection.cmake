# The guide shows the sample's source and its output: both must be what the sample really is and prints.
cmake_minimum_required(VERSION 3.25)

function(must_contain text part what)
  string(FIND "${text}" "${part}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "the guide does not show ${what}:\n${part}")
  endif()
endfunction()

execute_process(COMMAND ${EMULATOR} ${PROGRAM} OUTPUT_VARIABLE output RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR output STREQUAL "")
  message(FATAL_ERROR "the sample ended with ${status}")
endif()
string(REPLACE "\r" "" output "${output}")

file(READ ${GUIDE} guide)
file(READ ${SOURCE} source)
must_contain("${guide}" "```cpp\n${source}```" "the source of the sample")
must_contain("${guide}" "```text\n${output}```" "the output of the sample")
