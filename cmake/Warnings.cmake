# What every target of the program is compiled with: all warnings, as errors, and the sanitizers asked for.
add_library(velluto_warnings INTERFACE)
target_compile_options(velluto_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(VELLUTO_SANITIZE)
    add_compile_options(-fsanitize=${VELLUTO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VELLUTO_SANITIZE})
endif()
