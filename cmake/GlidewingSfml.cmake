# Gives glidewing::sfml, the one target to link for SFML 3 (Graphics, Window,
# Audio, System), and says on a status line which SFML it is:
#
#   GLIDEWING_FETCH_SFML=ON   SFML's sources, fetched and compiled with ours
#   otherwise                 an SFML 3 of the system (CMAKE_PREFIX_PATH and
#                             SFML_DIR count), or else the private runtime that
#                             scripts/bootstrap makes on such a machine
#
# Include it once, after project(), in the top directory.

option(GLIDEWING_FETCH_SFML "Fetch SFML's sources from its public repository and compile them" OFF)
set(GLIDEWING_SFML_RUNTIME "" CACHE PATH
    "The private SFML runtime; empty means where scripts/bootstrap puts it")

# Sets <out> to the directory of the private runtime, which need not exist. The
# scripts know the place; it is not written down a second time here.
function(glidewing_sfml_runtime_dir out)
    set(dir "${GLIDEWING_SFML_RUNTIME}")
    if(NOT dir AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
        execute_process(
            COMMAND bash -c "source \"$1\" && sfml_runtime_dir" bash
                    "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../scripts/lib.sh"
            OUTPUT_VARIABLE dir OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    endif()
    set(${out} "${dir}" PARENT_SCOPE)
endfunction()

# Links <target> so that it runs on the private runtime at <runtime>, which has
# SFML's CMake package in <package>. SFML was built with a newer C library than
# the machine's: the linker must not object to that, and the program must start
# with the loader that belongs to the newer one. RPATH, not RUNPATH, because only
# that is also looked up for what SFML's libraries need themselves.
function(glidewing_link_sfml_runtime target runtime package)
    get_filename_component(libraries "${package}/../.." ABSOLUTE)
    file(GLOB loader "${libraries}/ld-linux*.so.*")
    if(NOT loader)
        message(FATAL_ERROR "${runtime} has no loader; remove it and run scripts/bootstrap")
    endif()
    target_link_options(${target} INTERFACE
        "LINKER:--allow-shlib-undefined"
        "LINKER:--disable-new-dtags"
        "LINKER:-rpath,${libraries}"
        "LINKER:--dynamic-linker,${loader}")
endfunction()

add_library(glidewing_sfml INTERFACE)
add_library(glidewing::sfml ALIAS glidewing_sfml)

block()
    set(components Graphics Window Audio System)
    # Whoever has this project as a subfolder links these targets as well.
    set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)
    if(GLIDEWING_FETCH_SFML)
        include(FetchContent)
        set(SFML_BUILD_NETWORK OFF)
        FetchContent_Declare(SFML
            GIT_REPOSITORY https://github.com/SFML/SFML.git
            GIT_TAG 3.1.0
            GIT_SHALLOW ON
            SYSTEM)
        message(STATUS "SFML 3: fetching its sources")
        FetchContent_MakeAvailable(SFML)
    else()
        glidewing_sfml_runtime_dir(runtime)
        find_package(SFML 3 QUIET CONFIG COMPONENTS ${components})
        set(package "${SFML_DIR}")
        if(NOT SFML_FOUND AND runtime)
            find_package(SFML 3 QUIET CONFIG COMPONENTS ${components}
                PATHS "${runtime}/usr" NO_DEFAULT_PATH)
            set(package "${SFML_DIR}")
            # Not remembered: the next configuration asks the system first again.
            unset(SFML_DIR CACHE)
        endif()
        if(NOT SFML_FOUND)
            message(FATAL_ERROR
                "SFML 3 was not found, neither on the system nor in \"${runtime}\".\n"
                "Run scripts/bootstrap, then configure again. (Or configure with "
                "-DGLIDEWING_FETCH_SFML=ON, which fetches and compiles it.)")
        endif()

        # A private runtime is told by the stamp of scripts/bootstrap, however it
        # was found.
        get_filename_component(prefix "${package}/../../../../.." ABSOLUTE)
        if(EXISTS "${prefix}/bootstrap.stamp")
            glidewing_link_sfml_runtime(glidewing_sfml "${prefix}" "${package}")
            message(STATUS "SFML ${SFML_VERSION}: the private runtime in ${prefix}")
        else()
            message(STATUS "SFML ${SFML_VERSION}: the system's in ${package}")
        endif()
    endif()
    list(TRANSFORM components PREPEND SFML::)
    target_link_libraries(glidewing_sfml INTERFACE ${components})
endblock()
