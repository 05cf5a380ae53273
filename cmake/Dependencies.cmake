# Third-party libraries, each exposed as one imported target.
find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
pkg_check_modules(PCRE2 REQUIRED IMPORTED_TARGET libpcre2-8)
# The skinned frames set window-manager functions directly on GTK.
pkg_check_modules(GTK3 REQUIRED IMPORTED_TARGET gtk+-3.0)
find_package(Threads REQUIRED)

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
uikit_wx_target(wx::base "base")
uikit_wx_target(wx::gui "base,core,net,adv")
