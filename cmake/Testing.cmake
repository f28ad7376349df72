# Options and main() of the test programs; qv_test registers the programs.

# The only header that names the source tree. The rest of a test's compilation is the same in every
# clone, so that clones share a compiler cache.
configure_file(${CMAKE_CURRENT_LIST_DIR}/SourceTree.h.in ${CMAKE_BINARY_DIR}/generated/SourceTree.h)

# The options of every test program. Optimised for build time: the optimiser, debug information and
# the checks of undefined behaviour are for the code under test.
add_library(qv_test_fast_build INTERFACE)
if(WIN32)
  target_compile_options(qv_test_fast_build INTERFACE -O0 -g0)
  target_link_options(qv_test_fast_build INTERFACE -s -B${PROJECT_SOURCE_DIR}/cmake/linker/)
else()
  target_compile_options(qv_test_fast_build INTERFACE -O0 -fno-sanitize=undefined -g0)
endif()
add_library(qv_test_options INTERFACE)
target_include_directories(qv_test_options INTERFACE ${CMAKE_BINARY_DIR}/generated)
target_link_libraries(qv_test_options INTERFACE qv_options qv_test_fast_build qv_googletest)
if(BUILD_TESTING)
  file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/generated/TestHeaders.cpp CONTENT "")
  add_library(qv_test_headers OBJECT ${CMAKE_BINARY_DIR}/generated/TestHeaders.cpp)
  target_link_libraries(qv_test_headers PRIVATE qv_test_options)
  target_precompile_headers(qv_test_headers PRIVATE
    <gmock/gmock.h> <gtest/gtest.h> <algorithm> <filesystem> <fstream> <map> <optional> <set>
    <sstream> <string> <thread> <vector>)

  # The main() of the test programs.
  add_library(qv_test_main INTERFACE)
  if(WIN32)
    add_library(qv_windows_test_main STATIC EXCLUDE_FROM_ALL
      ${PROJECT_SOURCE_DIR}/tests/support/windows/Main.cpp)
    target_link_libraries(qv_windows_test_main PRIVATE qv_test_options PUBLIC ole32)
    target_link_libraries(qv_test_main INTERFACE qv_windows_test_main)
  else()
    target_link_libraries(qv_test_main INTERFACE qv_googletest_main)
  endif()
endif()

# qv_cached_test(name COMMAND ... [INPUTS files and folders...] [TIMEOUT seconds]): adds a test that
# runs again only if its inputs, the products or the tests' data changed since it passed.
function(qv_cached_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "COMMAND;INPUTS")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 900)
  endif()
  if(WIN32)
    list(APPEND arg_INPUTS $<TARGET_FILE:QVWMISATA> $<TARGET_FILE:qvsata>)
  endif()
  foreach(data hosts mof tests tools/environment tools/wine)
    list(APPEND arg_INPUTS ${PROJECT_SOURCE_DIR}/${data})
  endforeach()
  set(test ${QV_TEST_PREFIX}${name})
  add_test(NAME ${test} COMMAND ${PROJECT_SOURCE_DIR}/tools/cached-test
    ${CMAKE_BINARY_DIR}/passed/${name} ${arg_INPUTS} -- ${arg_COMMAND})
  set_tests_properties(${test} PROPERTIES TIMEOUT ${arg_TIMEOUT})
  # In a run of all builds' tests this build is one of them.
  set_tests_properties(${test} PROPERTIES FIXTURES_REQUIRED ${QV_TEST_PREFIX}build)
  if(WIN32)
    # They share one prefix, that is, one registry and one set of log files. The first one starts at
    # once, so that the other tests run beside them.
    set_tests_properties(${test} PROPERTIES RESOURCE_LOCK wine COST 100)
  endif()
endfunction()

# qv_test(name sources... [LINK libraries...] [INPUTS files and folders...] [TIMEOUT seconds]): adds a
# test program and registers it under its name. Without a test among its sources it contains all
# tests of the folder.
function(qv_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "LINK;INPUTS")
  if(NOT arg_UNPARSED_ARGUMENTS MATCHES "_test\\.cpp")
    file(GLOB tests CONFIGURE_DEPENDS *_test.cpp)
    list(APPEND arg_UNPARSED_ARGUMENTS ${tests})
  endif()
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE qv_test_options ${arg_LINK} qv_test_main)
  target_precompile_headers(${name} REUSE_FROM qv_test_headers)
  set(launcher ${CMAKE_CROSSCOMPILING_EMULATOR})
  if(QV_SANITIZE STREQUAL "thread")
    # The sanitizer needs the addresses where it expects them.
    set(launcher setarch -R)
  endif()
  set(results ${CMAKE_BINARY_DIR}/results/${name}.xml)
  if(WIN32)
    # A Windows program takes a path without a drive for a relative one.
    set(results Z:${results})
  endif()
  qv_cached_test(${name} INPUTS $<TARGET_FILE:${name}> ${arg_INPUTS} TIMEOUT ${arg_TIMEOUT}
    COMMAND ${launcher} $<TARGET_FILE:${name}> --gtest_brief=1 --gtest_output=xml:${results})
endfunction()
