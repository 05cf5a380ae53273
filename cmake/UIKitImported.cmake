# The imported targets of the third-party libraries UIKit links: the
# pkg-config modules and wxWidgets (through wx-config), each as one target.
# Used by the build and, installed beside the package files, by projects
# that find the installed UIKit. Needs PkgConfig found first.
if(NOT TARGET PkgConfig::LIBZIP)
  pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
endif()
if(NOT TARGET PkgConfig::PCRE2)
  pkg_check_modules(PCRE2 REQUIRED IMPORTED_TARGET libpcre2-8)
endif()
# The skinned frames set window-manager functions directly on GTK.
if(NOT TARGET PkgConfig::GTK3)
  pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)
endif()

# wxWidgets through wx-config: base alone for the platform layers, the GUI
# libraries for the user-interface library and the host.
find_program(WX_CONFIG wx-config REQUIRED)
function(uikit_wx_target name libs)
  execute_process(COMMAND ${WX_CONFIG} --cxxflags ${libs} OUTPUT_VARIABLE cxxflags OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND ${WX_CONFIG} --libs ${libs} OUTPUT_VARIABLE ldflags OUTPUT_STRIP_TRAILING_WHITESPACE)
  separate_arguments(cxxflags UNIX_COMMAND "${cxxflags}")
  separate_arguments(ldflags UNIX_COMMAND "${ldflags}")
  set(includes "")
  set(defines "")
  set(other "")
  foreach(flag IN LISTS cxxflags)
    if(flag MATCHES "^-I(.*)")
      list(APPEND includes ${CMAKE_MATCH_1})
    elseif(flag MATCHES "^-D(.*)")
      # Base's wxUSE_GUI=0 would reach GUI code that links both targets and
      # turn its wxApp into a console application (no GTK, no display).
      if(NOT CMAKE_MATCH_1 STREQUAL "wxUSE_GUI=0")
        list(APPEND defines ${CMAKE_MATCH_1})
      endif()
    else()
      list(APPEND other ${flag})
    endif()
  endforeach()
  add_library(${name} INTERFACE IMPORTED GLOBAL)
  # SYSTEM so that warnings in wx headers do not drown ours.
  target_include_directories(${name} SYSTEM INTERFACE ${includes})
  target_compile_definitions(${name} INTERFACE ${defines})
  target_compile_options(${name} INTERFACE ${other})
  target_link_libraries(${name} INTERFACE ${ldflags})
endfunction()
if(NOT TARGET wx::base)
  uikit_wx_target(wx::base "base")
  uikit_wx_target(wx::gui "base,core,net,adv")
endif()
