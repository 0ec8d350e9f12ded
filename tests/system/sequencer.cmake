# The sequencer with a JACK server of the tests' own, and a client that listens.
add_executable(system_sequencer SequencerTest.cpp JackServer.cpp)
target_include_directories(system_sequencer PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(system_sequencer PRIVATE velluto_devices velluto_standin velluto_machine velluto_warnings PkgConfig::JACK GTest::gtest_main
                      GTest::gmock)
target_compile_definitions(system_sequencer PRIVATE JACKD="${JACKD}" JACK_WAIT="${JACK_WAIT}"
                           JACK_INSTRUMENT="$<TARGET_FILE:jack-instrument>")
add_dependencies(system_sequencer jack-instrument)
gtest_discover_tests(system_sequencer TEST_PREFIX "system.sequencer." PROPERTIES TIMEOUT 300 DISCOVERY_TIMEOUT 60)
