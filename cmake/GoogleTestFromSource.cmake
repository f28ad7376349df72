# GoogleTest from the distribution's sources, compiled with this build's own compiler and
# sanitizers. Optimised for build time.
if(BUILD_TESTING)
  find_path(QV_GOOGLETEST googletest/src/gtest-all.cc REQUIRED
    PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH)
  add_library(qv_googletest STATIC EXCLUDE_FROM_ALL
    ${QV_GOOGLETEST}/googletest/src/gtest-all.cc
    ${QV_GOOGLETEST}/googlemock/src/gmock-all.cc)
  foreach(part googletest googlemock)
    target_include_directories(qv_googletest PRIVATE ${QV_GOOGLETEST}/${part})
    target_include_directories(qv_googletest SYSTEM PUBLIC ${QV_GOOGLETEST}/${part}/include)
  endforeach()

  # In a library, so that a program with a main() of its own does not take this one.
  add_library(qv_googletest_main STATIC EXCLUDE_FROM_ALL
    ${QV_GOOGLETEST}/googlemock/src/gmock_main.cc)
  target_link_libraries(qv_googletest_main PUBLIC qv_googletest)

  foreach(library qv_googletest qv_googletest_main)
    target_compile_options(${library} PRIVATE -O0 -g0)
    if(QV_SANITIZE)
      target_compile_options(${library} PRIVATE -fsanitize=${QV_SANITIZE})
    endif()
  endforeach()
endif()
