# Gives glidewing::sfml, the one target to link for SFML 3 (Graphics, Window, Audio,
# System), and says on a status line which SFML it is:
#
#   GLIDEWING_FETCH_SFML=ON   SFML's sources, fetched, compiled with ours and linked
#                             statically
#   otherwise                 an SFML 3 of the system (CMAKE_PREFIX_PATH and
#                             SFML_DIR count), or else the private runtime that
#                             scripts/bootstrap makes on such a machine
#
# Include it once, after project(), in the top directory. Every SFML 3 will do, unless
# glidewing_sfml_wanted tells the versions, as find_package takes them, and
# glidewing_sfml_fetched the one to fetch. Sets
#
#   glidewing_sfml_problem    why there is no SFML, and then no target; or empty
#   glidewing_sfml_version    of the SFML that was found
#   glidewing_sfml_runtime    the private runtime's directory, if that is what was found;
#                             also a property of the target, GLIDEWING_RUNTIME
#
# An SFML that becomes a part of the programs has its licences in another property of the
# target, GLIDEWING_LICENCES: files of different names. Empty where they are not known.

option(GLIDEWING_FETCH_SFML "Fetch SFML's sources from its public repository and compile them" OFF)
set(GLIDEWING_SFML_RUNTIME "" CACHE PATH
    "The private SFML runtime; empty means where scripts/bootstrap puts it")

# Sets <out> to the directory of the private runtime, which need not exist. The
# scripts, where they are, know the place; it is not written down a second time here.
function(glidewing_sfml_runtime_dir out)
    set(dir "${GLIDEWING_SFML_RUNTIME}")
    set(scripts "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../scripts/lib.sh")
    if(NOT dir AND CMAKE_SYSTEM_NAME STREQUAL "Linux" AND EXISTS "${scripts}")
        execute_process(
            COMMAND bash -c "source \"$1\" && sfml_runtime_dir" bash "${scripts}"
            OUTPUT_VARIABLE dir OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    endif()
    set(${out} "${dir}" PARENT_SCOPE)
endfunction()

# Links <target> so that it runs on the private runtime, which has its libraries in
# <libraries> and its loader in <loader>. SFML was built with a newer C library than
# the machine's: the linker must not object to that, and the program must start
# with the loader that belongs to the newer one. RPATH, not RUNPATH, because only
# that is also looked up for what SFML's libraries need themselves. A program with the
# property GLIDEWING_MOVABLE gets none of these paths and finds both by other means.
function(glidewing_link_sfml_runtime target libraries loader)
    set(fixed "$<NOT:$<BOOL:$<TARGET_PROPERTY:GLIDEWING_MOVABLE>>>")
    target_link_options(${target} INTERFACE
        "LINKER:--allow-shlib-undefined"
        "LINKER:--disable-new-dtags"
        "$<${fixed}:LINKER:-rpath,${libraries}>"
        "$<${fixed}:LINKER:--dynamic-linker,${loader}>")
endfunction()

# Sets <out> to the licences of an SFML whose sources were fetched, and of what its own build
# has fetched for it; each text gets the name of what it is for.
function(glidewing_fetched_licences out)
    set(place ${CMAKE_CURRENT_BINARY_DIR}/sfml-licences)
    file(MAKE_DIRECTORY ${place})
    set(licences ${sfml_SOURCE_DIR}/license.md ${sfml_SOURCE_DIR}/readme.md)
    foreach(part Freetype HarfBuzz SheenBidi ogg flac vorbis)
        unset(sources)
        FetchContent_GetProperties(${part} SOURCE_DIR sources)
        if(NOT sources) # this version or platform does without, or has the system's
            continue()
        endif()
        file(GLOB texts ${sources}/LICENSE* ${sources}/COPYING ${sources}/COPYING.Xiph
            ${sources}/docs/FTL.TXT)
        foreach(text IN LISTS texts)
            cmake_path(GET text STEM name)
            file(COPY_FILE ${text} ${place}/${part}-${name}.txt)
            list(APPEND licences ${place}/${part}-${name}.txt)
        endforeach()
    endforeach()
    set(${out} ${licences} PARENT_SCOPE)
endfunction()

block(PROPAGATE glidewing_sfml_problem glidewing_sfml_version glidewing_sfml_runtime)
    set(glidewing_sfml_problem "")
    set(glidewing_sfml_version "")
    set(glidewing_sfml_runtime "")
    set(licences "")
    set(components Graphics Window Audio System)
    # Whoever has this project as a subfolder links these targets as well.
    set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)
    if(GLIDEWING_FETCH_SFML)
        include(FetchContent)
        if(NOT glidewing_sfml_fetched)
            set(glidewing_sfml_fetched 3.1.0)
            if(CMAKE_VERSION VERSION_LESS 3.28) # what that one's own build wants
                set(glidewing_sfml_fetched 3.0.2)
            endif()
        endif()
        message(STATUS "SFML ${glidewing_sfml_fetched}: fetching its sources")
        # There is no such SOURCE_SUBDIR, so this only fetches. What is added below has
        # nothing to be installed with ours.
        FetchContent_Declare(SFML
            GIT_REPOSITORY https://github.com/SFML/SFML.git
            GIT_TAG ${glidewing_sfml_fetched}
            GIT_SHALLOW ON
            SOURCE_SUBDIR none)
        FetchContent_MakeAvailable(SFML)
        set(BUILD_SHARED_LIBS OFF)
        set(SFML_BUILD_NETWORK OFF)
        get_directory_property(ours COMPILE_OPTIONS)
        if(MINGW) # what becomes of it goes through the players' network
            add_compile_options(-Os)
        endif()
        add_subdirectory(${sfml_SOURCE_DIR} ${sfml_BINARY_DIR} EXCLUDE_FROM_ALL SYSTEM)
        set_directory_properties(PROPERTIES COMPILE_OPTIONS "${ours}")
        if(TARGET freetype AND TARGET harfbuzz)
            # They need each other, and only HarfBuzz is told so.
            target_link_libraries(freetype INTERFACE $<BUILD_INTERFACE:harfbuzz>)
        endif()
        get_directory_property(glidewing_sfml_version
            DIRECTORY ${sfml_SOURCE_DIR} DEFINITION PROJECT_VERSION)
        set(origin "compiled from its sources in ${sfml_SOURCE_DIR}")
        glidewing_fetched_licences(licences)
    else()
        if(NOT glidewing_sfml_wanted)
            set(glidewing_sfml_wanted 3)
        endif()
        glidewing_sfml_runtime_dir(runtime)
        find_package(SFML ${glidewing_sfml_wanted} QUIET CONFIG COMPONENTS ${components})
        set(package "${SFML_DIR}")
        set(considered ${SFML_CONSIDERED_VERSIONS})
        if(NOT SFML_FOUND AND runtime)
            find_package(SFML ${glidewing_sfml_wanted} QUIET CONFIG COMPONENTS ${components}
                PATHS "${runtime}/usr" NO_DEFAULT_PATH)
            set(package "${SFML_DIR}")
            list(APPEND considered ${SFML_CONSIDERED_VERSIONS})
            # Not remembered: the next configuration asks the system first again.
            unset(SFML_DIR CACHE)
        endif()
        set(glidewing_sfml_version "${SFML_VERSION}")

        # A private runtime is told by the stamp of scripts/bootstrap, however it
        # was found.
        get_filename_component(prefix "${package}/../../../../.." ABSOLUTE)
        if(NOT SFML_FOUND)
            set(glidewing_sfml_problem "SFML ${glidewing_sfml_wanted} was not found")
            if(considered)
                list(JOIN considered ", " considered)
                string(APPEND glidewing_sfml_problem ", only ${considered}")
            endif()
        elseif(EXISTS "${prefix}/bootstrap.stamp")
            set(glidewing_sfml_runtime "${prefix}")
            set(origin "the private runtime in ${prefix}")
            get_filename_component(libraries "${package}/../.." ABSOLUTE)
            file(GLOB loader "${libraries}/ld-linux*.so.*")
            if(NOT loader)
                set(glidewing_sfml_problem "The private SFML runtime in ${prefix} has no loader")
            endif()
        else()
            set(origin "the system's in ${package}")
            if(SFML_STATIC_LIBRARIES)
                file(GLOB licences "${package}/../../../share/doc/SFML/*.md"
                    "${package}/../../../share/doc/licences/*")
            endif()
        endif()
    endif()

    if(NOT glidewing_sfml_problem)
        if(NOT Glidewing_FIND_QUIETLY)
            message(STATUS "SFML ${glidewing_sfml_version}: ${origin}")
        endif()
        list(TRANSFORM components PREPEND SFML::)
        add_library(glidewing_sfml INTERFACE)
        add_library(glidewing::sfml ALIAS glidewing_sfml)
        target_link_libraries(glidewing_sfml INTERFACE ${components})
        set_target_properties(glidewing_sfml PROPERTIES
            GLIDEWING_RUNTIME "${glidewing_sfml_runtime}"
            GLIDEWING_LICENCES "${licences}")
        if(glidewing_sfml_runtime)
            glidewing_link_sfml_runtime(glidewing_sfml "${libraries}" "${loader}")
        endif()
    endif()
endblock()
