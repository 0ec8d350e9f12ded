# The program on a virtual display, used with mouse and keys, and what then arrives at an instrument.
pkg_check_modules(JACK REQUIRED IMPORTED_TARGET jack)
add_executable(jack-instrument JackInstrument.cpp)
target_link_libraries(jack-instrument PRIVATE velluto_warnings PkgConfig::JACK)

foreach(name first-click style-banks ended-early full-disk no-files server-gone server-hangs keyboard player)
    string(REPLACE - _ test ${name})
    add_test(NAME system.gui_${test}
             COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/gui-${name}.sh $<TARGET_FILE:velluto> $<TARGET_FILE:jack-instrument>
                     ${CMAKE_CURRENT_BINARY_DIR})
    set_tests_properties(system.gui_${test} PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77)
endforeach()

# Whole evenings, lived by scripts that know the program's windows as a screen reader does.
foreach(name files editing playing restart keys names)
    add_test(NAME system.evening_${name}
             COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/evening.sh $<TARGET_FILE:velluto> $<TARGET_FILE:jack-instrument>
                     ${CMAKE_CURRENT_BINARY_DIR} $<TARGET_FILE:velluto-driver> ${name})
    set_tests_properties(system.evening_${name} PROPERTIES TIMEOUT 300)
endforeach()

add_test(NAME system.installed
         COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/installed.sh ${PROJECT_BINARY_DIR} $<TARGET_FILE:jack-instrument>
                 ${CMAKE_CURRENT_BINARY_DIR})
set_tests_properties(system.installed PROPERTIES TIMEOUT 300)
