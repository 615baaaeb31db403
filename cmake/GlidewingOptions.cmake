# Gives glidewing::options, the compiler options of our own code. Nothing that
# comes from elsewhere links it.

add_library(glidewing_options INTERFACE)
add_library(glidewing::options ALIAS glidewing_options)

if(MSVC)
    set(werror /WX)
    target_compile_options(glidewing_options INTERFACE /W4 /utf-8)
else()
    set(werror -Werror)
    target_compile_options(glidewing_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion
        # The same arithmetic with every compiler: a seed gives the same game.
        -ffp-contract=off)
endif()

if(GLIDEWING_WERROR)
    target_compile_options(glidewing_options INTERFACE ${werror})
endif()

if(GLIDEWING_FUZZ)
    # Lets the fuzzer see which paths an input takes.
    target_compile_options(glidewing_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(GLIDEWING_SANITIZE)
    target_compile_options(glidewing_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(glidewing_options INTERFACE -fsanitize=address,undefined)
endif()
