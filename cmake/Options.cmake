# The options of every target of this project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

option(QV_BENCHMARKS "build the benchmarks" OFF)
set(QV_SANITIZE "" CACHE STRING "sanitizers of the native build, as -fsanitize= takes them")
option(QV_COVERAGE "instrument for gcov" OFF)
option(QV_FUZZING "build the fuzzer; needs clang" OFF)

# Clang, which builds the fuzzer, lacks some of the warnings.
set(gcc $<CXX_COMPILER_ID:GNU>)
add_library(qv_options INTERFACE)
target_include_directories(qv_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(qv_options INTERFACE
  -Wall -Wextra -Wpedantic $<${gcc}:-Wshadow=local> -Wconversion -Wsign-conversion -Wold-style-cast
  -Woverloaded-virtual -Wcast-align -Wunused -Wformat=2
  -Wnull-dereference $<${gcc}:-Wduplicated-cond> $<${gcc}:-Wlogical-op> -Wextra-semi -Werror
  # GCC 12 takes the insertion of a text before another for overlapping copies where it inlines all of it.
  $<${gcc}:-Wno-restrict>)

if(QV_SANITIZE)
  target_compile_options(qv_options INTERFACE
    -fsanitize=${QV_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    # GCC's flow analysis reports false positives on sanitizer-instrumented code.
    -Wno-null-dereference $<${gcc}:-Wno-maybe-uninitialized>)
  target_link_options(qv_options INTERFACE -fsanitize=${QV_SANITIZE})
endif()
if(QV_COVERAGE)
  target_compile_options(qv_options INTERFACE --coverage)
  target_link_options(qv_options INTERFACE --coverage)
endif()

if(QV_FUZZING)
  # libFuzzer learns nothing from traced comparisons of sizes and characters, and they cost a quarter.
  target_compile_options(qv_options INTERFACE
    -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp,indirect-calls)
endif()

if(NOT WIN32)
  # The platform's COM interfaces have no virtual destructors, by design.
  target_compile_options(qv_options INTERFACE -Wnon-virtual-dtor)
endif()

if(WIN32)
  # Windows 7 is the oldest system supported.
  target_compile_definitions(qv_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
  # Debug information names no folder of the machine that built it.
  target_compile_options(qv_options INTERFACE
    -fstack-protector-strong -fdebug-prefix-map=${PROJECT_SOURCE_DIR}=/qvwmisata)
  target_link_options(qv_options INTERFACE
    -static -fstack-protector-strong -Wl,--dynamicbase,--high-entropy-va,--nxcompat,--no-insert-timestamp)
endif()

# qv_library(name sources...): creates a static library of the project.
function(qv_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC qv_options)
endfunction()

# qv_ship(target): strips a program or library for users and leaves its debug information beside it
# in FILE.debug, which the file names. Without a fixed time objcopy writes the present one.
function(qv_ship target)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
  set(file $<TARGET_FILE_NAME:${target}>)
  set(objcopy ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0 ${CMAKE_OBJCOPY})
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${objcopy} --only-keep-debug ${file} ${file}.debug
    COMMAND ${objcopy} --strip-all --add-gnu-debuglink=${file}.debug ${file}
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR} VERBATIM)
endfunction()
