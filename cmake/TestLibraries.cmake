# What the driver and the tests are made with. A build for another system takes from this one what is the same on both: the headers of
# nlohmann-json, and the sources of GoogleTest, which are compiled anew (Debian's package googletest).
macro(velluto_find_json)
    if(CMAKE_CROSSCOMPILING)
        # A folder of its own: beside it in /usr/include lie the headers of the wrong system.
        file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
        file(CREATE_LINK /usr/include/nlohmann ${PROJECT_BINARY_DIR}/headers/nlohmann SYMBOLIC)
        add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
        target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${PROJECT_BINARY_DIR}/headers)
    else()
        find_package(nlohmann_json REQUIRED)
    endif()
endmacro()

macro(velluto_find_googletest)
    if(CMAKE_CROSSCOMPILING)
        set(INSTALL_GTEST OFF)
        add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    else()
        find_package(GTest REQUIRED)
    endif()
    include(GoogleTest)
endmacro()

# One test of ctest's for each test of the program. Not where the program runs in an emulator: to start that for each of them takes an
# hour, and packaging/windows/test.sh lets a program run all its tests at once.
function(velluto_discover_tests target prefix)
    if(NOT CMAKE_CROSSCOMPILING)
        gtest_discover_tests(${target} TEST_PREFIX "${prefix}" DISCOVERY_TIMEOUT 60 ${ARGN})
    endif()
endfunction()
