# GoogleTest: natively the distribution's library; for Windows its sources, optimised for build time.
if(NOT BUILD_TESTING)
  return()
endif()

if(NOT WIN32)
  find_package(GTest REQUIRED)
  add_library(qv_googletest ALIAS GTest::gmock)
  add_library(qv_googletest_main ALIAS GTest::gmock_main)
  return()
endif()

find_path(QV_GOOGLETEST googletest/src/gtest-all.cc REQUIRED
  PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH)
add_library(qv_googletest STATIC EXCLUDE_FROM_ALL
  ${QV_GOOGLETEST}/googletest/src/gtest-all.cc
  ${QV_GOOGLETEST}/googlemock/src/gmock-all.cc)
foreach(part googletest googlemock)
  target_include_directories(qv_googletest PRIVATE ${QV_GOOGLETEST}/${part})
  target_include_directories(qv_googletest SYSTEM PUBLIC ${QV_GOOGLETEST}/${part}/include)
endforeach()
target_compile_options(qv_googletest PRIVATE -O0 -g0)
