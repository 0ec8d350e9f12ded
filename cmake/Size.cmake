# A smaller program starts sooner and takes less memory: fewer of its pages are touched. -O3 makes its code a fifth longer, and lists 128
# rows 2 us sooner. What nobody calls is left out.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND LINUX)
    if(CMAKE_CXX_FLAGS_RELEASE STREQUAL "-O3 -DNDEBUG") # nobody has asked for others
        set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
    endif()
    add_compile_options(-ffunction-sections -fdata-sections)
    add_link_options(-Wl,--gc-sections)
endif()
