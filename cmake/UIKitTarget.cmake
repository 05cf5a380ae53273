# Warning flags for the project's own code only.
function(uikit_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# A shared library made of every .cpp below the given folders.
function(uikit_library name)
  cmake_parse_arguments(ARG "" "" "DIRS;PUBLIC_INCLUDE;LINK" ${ARGN})
  set(sources "")
  foreach(dir IN LISTS ARG_DIRS)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${dir}/*.cpp)
    list(APPEND sources ${found})
  endforeach()
  add_library(${name} SHARED ${sources})
  target_include_directories(${name} PUBLIC ${ARG_PUBLIC_INCLUDE})
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
  uikit_warnings(${name})
endfunction()
