# What a plug-in author does with the SDK: install it into a prefix,
# configure and build a plug-in out of tree against nothing but the
# installed files (CMake package, then pkg-config), and load the result
# with the library's plug-in loader.
#   -DBUILD=<project build dir> -DSOURCE=<sample plug-in source>
#   -DWORK=<scratch dir> -DCHECK=<loader program> -DGENERATOR=<generator>
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGN}\n${out}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK}/prefix)
file(REMOVE_RECURSE ${prefix} ${WORK}/plugin)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})

# Found through the CMake package only: no path into the source tree.
find_program(ccache ccache)
set(launcher "")
if(ccache)
  set(launcher -DCMAKE_CXX_COMPILER_LAUNCHER=${ccache})
endif()
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/plugin -G ${GENERATOR} -DCMAKE_BUILD_TYPE=RelWithDebInfo
    -DCMAKE_PREFIX_PATH=${prefix} ${launcher})
run(${CMAKE_COMMAND} --build ${WORK}/plugin)
run(${CHECK} ${WORK}/plugin sample_plugin.so)
message(STATUS "${output}")

# The pkg-config file resolves from wherever the SDK was installed.
find_program(pkgconfig pkg-config REQUIRED)
file(GLOB_RECURSE pc ${prefix}/uikit.pc)
get_filename_component(pcdir "${pc}" DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pcdir})
run(${pkgconfig} --cflags --libs uikit)
if(NOT output MATCHES "-I${pcdir}/[./]*include/uikit" OR NOT output MATCHES "-lUIKit")
  message(FATAL_ERROR "uikit.pc does not point into the installed SDK: ${output}")
endif()
