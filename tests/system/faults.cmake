# The program without its screen on disks that fail.
add_test(NAME system.faults
         COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/faults.py $<TARGET_FILE:velluto-driver> ${PROJECT_SOURCE_DIR}/data/samples)
set_tests_properties(system.faults PROPERTIES TIMEOUT 300 SKIP_RETURN_CODE 77)
