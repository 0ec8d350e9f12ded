# The program on a virtual display, used with mouse and keys, and what then arrives at an instrument.
pkg_check_modules(JACK REQUIRED IMPORTED_TARGET jack)
add_executable(jack-instrument JackInstrument.cpp)
target_link_libraries(jack-instrument PRIVATE velluto_warnings PkgConfig::JACK)

add_test(NAME system.gui_first_click
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/gui-first-click.sh $<TARGET_FILE:velluto> $<TARGET_FILE:jack-instrument>
                 ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(system.gui_first_click PROPERTIES RESOURCE_LOCK jack TIMEOUT 120)
