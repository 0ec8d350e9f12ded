# What makes a fault in a program harder to use against its user: where data and code lie is left to chance, the linker's tables are
# read-only once the program runs, and a stack that was written over, or a jump to where none belongs, ends the program.
# tools/check-hardened looks at what came of it.
set(velluto_release OFF)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND LINUX)
    set(velluto_release ON)
endif()
option(VELLUTO_HARDEN "Build a hardened program" ${velluto_release})
if(VELLUTO_HARDEN)
    include(CheckPIESupported)
    check_pie_supported()
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        add_compile_options(-fcf-protection=full)
    endif()
    add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
endif()
