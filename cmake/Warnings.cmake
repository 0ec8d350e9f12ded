# What every target of the program is compiled with: all warnings, and the sanitizers asked for. Warnings are errors in the
# project's own presets only: another compiler, or another build type, may see something that is none.
option(VELLUTO_WERROR "Take warnings for errors" OFF)
add_library(velluto_warnings INTERFACE)
target_compile_options(velluto_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
if(VELLUTO_WERROR)
    target_compile_options(velluto_warnings INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes an optimised literal + std::string for an overlapping copy (its bug 105651).
    target_compile_options(velluto_warnings INTERFACE -Wno-restrict)
    if(WIN32) # where it takes the like for copies of 2^63 bytes
        target_compile_options(velluto_warnings INTERFACE -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds)
    endif()
endif()
if(VELLUTO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(VELLUTO_SANITIZE)
    add_compile_options(-fsanitize=${VELLUTO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_definitions(_GLIBCXX_ASSERTIONS) # an index outside a vector, an empty optional: told by the library itself
    add_link_options(-fsanitize=${VELLUTO_SANITIZE})
endif()
