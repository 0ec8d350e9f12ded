# The program without its screen on disks that fail.
add_test(NAME system.faults
         COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/faults.py $<TARGET_FILE:velluto-driver> ${PROJECT_SOURCE_DIR}/data/samples)
set_tests_properties(system.faults PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77)

# The same, ended at every operation that it writes with. A sanitizer wants to be the first to stand before the system's calls.
if(NOT VELLUTO_SANITIZE)
    add_library(end_at MODULE EndAt.cpp)
    target_link_libraries(end_at PRIVATE velluto_warnings ${CMAKE_DL_LIBS})
    add_test(NAME system.kills
             COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/kills.py $<TARGET_FILE:velluto-driver> $<TARGET_FILE:end_at>
                     ${PROJECT_SOURCE_DIR}/data/samples)
    set_tests_properties(system.kills PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77)
endif()

# What is no file, at each door that takes a path.
add_test(NAME system.no_files
         COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/nofiles.py $<TARGET_FILE:velluto-driver> $<TARGET_FILE:velluto-tool>
                 ${PROJECT_SOURCE_DIR}/data/samples)
set_tests_properties(system.no_files PROPERTIES TIMEOUT 300)
