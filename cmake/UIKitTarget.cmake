# Warning flags for the project's own code only.
function(uikit_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra)
endfunction()

# Precompiled headers for a target, when UIKIT_PCH is on.
function(uikit_precompile_headers target)
  if(UIKIT_PCH)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
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
  # Installed, every library's headers sit under one include folder.
  foreach(dir IN LISTS ARG_PUBLIC_INCLUDE)
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${dir}>)
  endforeach()
  target_include_directories(${name} INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/uikit>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  # Installed libraries find each other in their own folder.
  set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
  target_link_libraries(${name} PUBLIC ${ARG_LINK})
  uikit_warnings(${name})
endfunction()

# Zips a directory appearance pack into OUT_DIR/<name> at build time, with
# the standard zip tool, as a target that others can depend on.
function(uikit_zip_pack target source_dir out_dir)
  find_program(ZIP_PROGRAM zip REQUIRED)
  get_filename_component(name ${source_dir} NAME)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${source_dir}/*)
  add_custom_command(OUTPUT ${out_dir}/${name}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${out_dir}
    COMMAND ${CMAKE_COMMAND} -E rm -f ${out_dir}/${name}
    COMMAND ${ZIP_PROGRAM} -r -X -q ${out_dir}/${name} .
    WORKING_DIRECTORY ${source_dir}
    DEPENDS ${files}
    COMMENT "Zipping the appearance pack ${name}")
  add_custom_target(${target} ALL DEPENDS ${out_dir}/${name})
endfunction()
