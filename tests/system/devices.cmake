# The real MIDI devices against a JACK server of the tests' own: what arrives at another client, and what happens when
# ports and servers come and go.
find_program(JACKD jackd)
find_program(JACK_WAIT jack_wait)
find_program(JACK_EVMON jack_evmon)
if(NOT JACKD OR NOT JACK_WAIT OR NOT JACK_EVMON)
    message(FATAL_ERROR "jackd is missing: the system tests need the package jackd2 (./test.sh installs it)")
endif()

add_executable(jack-keys JackKeys.cpp)
target_link_libraries(jack-keys PRIVATE velluto_warnings PkgConfig::JACK)

add_executable(system_devices DeviceOrdersTest.cpp DeviceStartTest.cpp DevicesTest.cpp JackServer.cpp LockedMemoryTest.cpp
               PortPlacesTest.cpp)
target_include_directories(system_devices PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(system_devices PRIVATE velluto_devices velluto_standin velluto_machine velluto_warnings GTest::gtest_main GTest::gmock)
target_compile_definitions(system_devices PRIVATE JACKD="${JACKD}" JACK_WAIT="${JACK_WAIT}" JACK_EVMON="${JACK_EVMON}"
                           JACK_INSTRUMENT="$<TARGET_FILE:jack-instrument>" JACK_KEYS="$<TARGET_FILE:jack-keys>")
add_dependencies(system_devices jack-keys jack-instrument)
gtest_discover_tests(system_devices TEST_PREFIX "system.devices." PROPERTIES TIMEOUT 300 DISCOVERY_TIMEOUT 60)
