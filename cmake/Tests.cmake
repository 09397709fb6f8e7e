# GoogleTest from Debian's sources, built for each world, and
#
# lv_add_test(<target> SOURCES ... LIBS ... [WINDOWS_ONLY | NATIVE_ONLY] [MAIN <file>] [LABELS ...]
#             [RESOURCE_LOCK <name>] [TIMEOUT <seconds>] [SHARDS <number> | ISOLATED] [ONE_THREAD])
#
# A program runs as one process: starting one costs more than most tests, under Wine by far. When a test fails, ctest
# shows the program's output, which ends in the names of those that failed; `<program> --gtest_filter=...` runs one.
# SHARDS spreads a long program over that many processes, so that the processors share it. ISOLATED gives each test a
# process of its own, for tests that leave something behind that others would meet. ONE_THREAD says that nothing in the
# program starts a second one: the thread sanitizer's build leaves it out.
enable_testing()
include(GoogleTest)
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/gtest EXCLUDE_FROM_ALL)
# Test code runs once and is compiled often: unoptimised it takes a third of the time. What it tests is not affected.
set(LV_TEST_OPTIONS -O0 -g1)
foreach(library gtest gtest_main gmock gmock_main)
  target_compile_options(${library} PRIVATE ${LV_TEST_OPTIONS})
  get_target_property(includes ${library} INTERFACE_INCLUDE_DIRECTORIES)
  set_target_properties(${library} PROPERTIES INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${includes}")
endforeach()

function(lv_add_test target)
  cmake_parse_arguments(arg "WINDOWS_ONLY;NATIVE_ONLY;ISOLATED;ONE_THREAD" "MAIN;RESOURCE_LOCK;TIMEOUT;SHARDS"
    "SOURCES;LIBS;LABELS" ${ARGN})
  if((arg_WINDOWS_ONLY AND NOT WIN32) OR (arg_NATIVE_ONLY AND WIN32))
    return()
  endif()
  add_executable(${target} ${arg_SOURCES} ${arg_MAIN})
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${LV_TEST_OPTIONS}>)
  target_link_libraries(${target} PRIVATE ${arg_LIBS} lv_sdk gmock)
  if(NOT arg_MAIN)
    target_link_libraries(${target} PRIVATE gmock_main)
  endif()
  if(WIN32)
    # The test programs start at main; nothing of them is compiled by the tests' own warnings for macros of gtest.
    target_link_options(${target} PRIVATE -mconsole)
  endif()

  if(arg_ONE_THREAD AND LV_SANITIZE STREQUAL "thread")
    set_target_properties(${target} PROPERTIES EXCLUDE_FROM_ALL ON)
    return()
  endif()
  # Parsing the headers of the test library costs more than most test files: a program of several reads them once.
  list(LENGTH arg_SOURCES files)
  if(files GREATER 3)
    target_precompile_headers(${target} PRIVATE <gmock/gmock.h>)
  endif()

  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 600)
  endif()
  set(properties TIMEOUT ${arg_TIMEOUT})
  if(arg_RESOURCE_LOCK)
    list(APPEND properties RESOURCE_LOCK ${arg_RESOURCE_LOCK})
  endif()
  if(arg_LABELS)
    list(APPEND properties LABELS "${arg_LABELS}")
  endif()
  if(arg_ISOLATED)
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120 PROPERTIES ${properties})
  elseif(arg_SHARDS)
    foreach(shard RANGE 1 ${arg_SHARDS})
      math(EXPR index "${shard} - 1")
      add_test(NAME ${target}.${shard} COMMAND ${target})
      set_tests_properties(${target}.${shard} PROPERTIES ${properties}
        ENVIRONMENT "GTEST_TOTAL_SHARDS=${arg_SHARDS};GTEST_SHARD_INDEX=${index}")
    endforeach()
  else()
    add_test(NAME ${target} COMMAND ${target})
    set_tests_properties(${target} PROPERTIES ${properties})
  endif()
endfunction()
