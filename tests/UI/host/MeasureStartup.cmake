# Starts the connection manager once with --measure-startup (under Xvfb when
# there is no display) and checks that it prints its start-up time as
# "<number> ms" and exits with 0. The figure itself is not judged: it
# depends on the machine and its load.
#   cmake -DBIN=path/to/connection-manager -P MeasureStartup.cmake
if("$ENV{DISPLAY}" STREQUAL "")
  set(command xvfb-run -a -s "-screen 0 1280x1024x24" ${BIN} --measure-startup)
else()
  set(command ${BIN} --measure-startup)
endif()
execute_process(COMMAND ${command} OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status TIMEOUT 60)
if(NOT status EQUAL 0 OR NOT out MATCHES "(^|\n)[0-9]+ ms\n")
  message(FATAL_ERROR "--measure-startup: exit status ${status}\nstdout: ${out}\nstderr: ${err}")
endif()
message(STATUS "start-up: ${out}")
