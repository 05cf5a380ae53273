# The SDK: `cmake --install <build> --prefix DIR` installs the public
# headers of the library and the platform layers, their shared libraries,
# a CMake package (find_package(UIKit)) and the pkg-config file uikit.pc,
# which is all a plug-in built outside this tree needs.
include(CMakePackageConfigHelpers)

set(uikit_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/UIKit)
set(uikit_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/uikit)

install(TARGETS Toolkit Preferences Detection ComCore Devices UIKit EXPORT UIKitTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT UIKitTargets NAMESPACE UIKit:: DESTINATION ${uikit_cmake_dir})
foreach(dir platform/Toolkit platform/Preferences platform/Detection platform/ComCore platform/Devices UI/toolkit)
  get_filename_component(name ${dir} NAME)
  if(name STREQUAL "toolkit")
    set(destination ${uikit_include_dir})
  else()
    set(destination ${uikit_include_dir}/${name})
  endif()
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/${dir}/ DESTINATION ${destination}
          FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
endforeach()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/UIKitConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/sdk/UIKitConfig.cmake INSTALL_DESTINATION ${uikit_cmake_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/sdk/UIKitConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/sdk/UIKitConfig.cmake ${CMAKE_BINARY_DIR}/sdk/UIKitConfigVersion.cmake
              ${CMAKE_CURRENT_LIST_DIR}/UIKitImported.cmake
        DESTINATION ${uikit_cmake_dir})

# The pkg-config file finds its prefix from its own folder, so the SDK
# works wherever it is installed; wxWidgets has no pkg-config module, so
# its flags are written in as wx-config gives them.
file(RELATIVE_PATH PC_PREFIX_FROM_PCDIR /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
execute_process(COMMAND ${WX_CONFIG} --cxxflags base,core,net,adv OUTPUT_VARIABLE PC_WX_CFLAGS
                OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND ${WX_CONFIG} --libs base,core,net,adv OUTPUT_VARIABLE PC_WX_LIBS
                OUTPUT_STRIP_TRAILING_WHITESPACE)
configure_file(${CMAKE_CURRENT_LIST_DIR}/uikit.pc.in ${CMAKE_BINARY_DIR}/sdk/uikit.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/sdk/uikit.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
