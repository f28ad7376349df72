# The distribution's header-only libraries, also for the cross build: a link in the build tree
# exposes one library's folder and nothing else of the host's include directory.

# qv_header_library(target folder header): creates an interface target for <folder/header>.
function(qv_header_library target folder header)
  find_path(${target}_ROOT ${folder}/${header} REQUIRED
    PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
  set(include ${CMAKE_BINARY_DIR}/headers/${folder})
  file(MAKE_DIRECTORY ${include})
  file(CREATE_LINK ${${target}_ROOT}/${folder} ${include}/${folder} SYMBOLIC)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${include})
endfunction()

qv_header_library(qv_json nlohmann json.hpp)
qv_header_library(qv_cli11 CLI CLI.hpp)
# GCC's flow analysis reports a null pointer in a vector of detail::split that is none.
target_compile_options(qv_cli11 INTERFACE -Wno-null-dereference)
