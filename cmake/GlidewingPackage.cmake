# How a game on the engine is given to players, on Linux:
#
#   glidewing_package(TARGET <program>... [ASSETS <file or folder>...]
#       [NAME <name>] [VERSION <version>] [README <file>] [CONTACT <text>]
#       [COMPONENTS <component>...])
#
# gives the target <program>-package, which leaves an archive that players unpack anywhere
# and play from: <name>-<version>-<system>-<processor>.tar.gz in the build directory. It is
# made on Debian or its like, which know the licences of the libraries that come along. The
# same sources make the same archive where SOURCE_DATE_EPOCH is set.
#
#   TARGET      what players start; more than one share all that follows
#   ASSETS      what it reads, each by its own name where it is started, beside the font; of
#               a folder that is written with / at its end, what is in it
#   NAME        one word; as a rule the first program's
#   VERSION     as a rule the project's
#   README      the beginning of the archive's README, in place of how the game is started
#   CONTACT     who answers for the archive, for its README
#   COMPONENTS  what the project itself installs and has to be in it
#
# It has the layout that an installed game has, here with the usual directories:
#
#   bin/<program>              a launcher, a shell script; at the top is a link to it
#   libexec/<name>/<program>   the program
#   libexec/<name>/lib         libraries that not every desktop has
#   libexec/<name>/newer       C and C++ library, for a machine whose own are too old
#   share/<name>               assets and font: what is linked to where the game is started
#   share/doc/<name>/licences  the licences of what others made

# Links a program again, from its own object files, as <program>-movable: it starts with
# the machine's loader, and finds the libraries that came along wherever it lies. The
# build's own program may name the loader of the private SFML by its place on this machine.
function(glidewing_add_movable program)
    if(TARGET ${program}-movable)
        return()
    endif()
    add_executable(${program}-movable EXCLUDE_FROM_ALL $<TARGET_OBJECTS:${program}>)
    target_link_libraries(${program}-movable PRIVATE
        $<TARGET_PROPERTY:${program},LINK_LIBRARIES>)
    # RPATH, not RUNPATH: also for what the libraries there need themselves.
    target_link_options(${program}-movable PRIVATE "LINKER:--disable-new-dtags")
    set_target_properties(${program}-movable PROPERTIES
        GLIDEWING_MOVABLE ON
        LINKER_LANGUAGE CXX
        OUTPUT_NAME ${program}
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${program}-movable
        BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "$ORIGIN/lib")
endfunction()

# glidewing_install_game(NAME TARGET ASSETS COMPONENT [PORTABLE]): installs a game in the
# layout above. PORTABLE: with all libraries, and only where the component is asked for;
# otherwise with none but those of the private SFML, which is nowhere else.
function(glidewing_install_game)
    cmake_parse_arguments(PARSE_ARGV 0 game "PORTABLE" "NAME;COMPONENT" "TARGET;ASSETS")
    include(GNUInstallDirs)
    set(private_dir ${CMAKE_INSTALL_LIBEXECDIR}/${game_NAME})
    set(data_dir ${CMAKE_INSTALL_DATADIR}/${game_NAME})
    set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/${game_NAME})
    set(package_files ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package)
    set(out ${CMAKE_CURRENT_BINARY_DIR}/${game_COMPONENT})
    set(there COMPONENT ${game_COMPONENT})
    get_target_property(runtime glidewing_sfml GLIDEWING_RUNTIME)
    set(origins "")
    if(runtime)
        list(APPEND origins private)
    endif()
    if(game_PORTABLE)
        list(APPEND origins machine)
        list(APPEND there EXCLUDE_FROM_ALL)
    endif()

    file(RELATIVE_PATH data_from_launcher /${CMAKE_INSTALL_BINDIR} /${data_dir})
    file(RELATIVE_PATH private_from_launcher /${CMAKE_INSTALL_BINDIR} /${private_dir})
    set(programs "")
    foreach(program IN LISTS game_TARGET)
        list(APPEND programs "$<TARGET_FILE:${program}>")
        if(origins)
            glidewing_add_movable(${program})
            set(installed ${program}-movable)
        else()
            # No path at all, unless SFML is the user's own, outside of where the system looks.
            set_target_properties(${program} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
            set(installed ${program})
        endif()
        if(NOT game_PORTABLE)
            set_target_properties(${installed} PROPERTIES EXCLUDE_FROM_ALL OFF)
        endif()
        install(TARGETS ${installed} DESTINATION ${private_dir} ${there})
        configure_file(${package_files}/launcher.in ${out}/${program} @ONLY)
        install(PROGRAMS ${out}/${program} DESTINATION ${CMAKE_INSTALL_BINDIR} ${there})
    endforeach()

    install(FILES ${GLIDEWING_FONT} DESTINATION ${data_dir} RENAME gw-font.ttf ${there})
    foreach(asset IN LISTS game_ASSETS)
        cmake_path(ABSOLUTE_PATH asset NORMALIZE)
        if(IS_DIRECTORY ${asset})
            install(DIRECTORY ${asset} DESTINATION ${data_dir} ${there})
        else()
            install(FILES ${asset} DESTINATION ${data_dir} ${there})
        endif()
    endforeach()

    # Compiled into the program, from a package.
    set(parts "")
    if(TARGET gw::runner)
        find_file(parts CLI/CLI.hpp NO_CACHE)
    endif()
    set(settings "")
    foreach(setting game_NAME programs origins runtime parts private_dir doc_dir)
        string(APPEND settings "set(${setting} \"${${setting}}\")\n")
    endforeach()
    install(CODE "block(PROPAGATE CMAKE_INSTALL_MANIFEST_FILES)\n${settings}include(\"${package_files}/bundle.cmake\")\nendblock()" ${there})
    if(GLIDEWING_FETCH_SFML)
        # It is a part of the program then. The second file tells what SFML contains itself.
        install(FILES ${SFML_SOURCE_DIR}/license.md ${SFML_SOURCE_DIR}/readme.md
            DESTINATION ${doc_dir}/licences/SFML ${there})
    endif()
endfunction()

# Ends the configuration where the caller's arguments cannot be packed.
function(glidewing_check_package)
    foreach(program IN LISTS game_TARGET)
        if(NOT TARGET ${program})
            message(FATAL_ERROR "glidewing_package: there is no target ${program}")
        endif()
    endforeach()
    foreach(asset IN LISTS game_ASSETS)
        cmake_path(ABSOLUTE_PATH asset)
        if(NOT EXISTS ${asset})
            message(FATAL_ERROR "glidewing_package: there is no ${asset}")
        endif()
    endforeach()
    if(NOT game_NAME MATCHES "^[A-Za-z0-9][A-Za-z0-9+._-]*$")
        message(FATAL_ERROR "glidewing_package: NAME \"${game_NAME}\" is not one word")
    endif()
    if(NOT game_VERSION MATCHES "^[A-Za-z0-9+._~-]+$")
        message(FATAL_ERROR "glidewing_package wants a VERSION, in one word, here or in project()")
    endif()
endfunction()

function(glidewing_package)
    cmake_parse_arguments(PARSE_ARGV 0 game "" "NAME;VERSION;README;CONTACT" "TARGET;ASSETS;COMPONENTS")
    if(game_UNPARSED_ARGUMENTS OR NOT game_TARGET)
        message(FATAL_ERROR "glidewing_package wants TARGET <program>... [ASSETS <file or folder>...]")
    endif()
    list(GET game_TARGET 0 first)
    if(NOT game_NAME)
        set(game_NAME ${first})
    endif()
    if(NOT game_VERSION)
        set(game_VERSION "${PROJECT_VERSION}")
    endif()
    glidewing_check_package()
    if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
        message(STATUS "glidewing_package: archives are made for Linux alone, so ${game_NAME} has none")
        return()
    endif()
    set(component ${first}-package)
    glidewing_install_game(PORTABLE NAME ${game_NAME} TARGET ${game_TARGET}
        ASSETS ${game_ASSETS} COMPONENT ${component})
    set(package_files ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package)
    set(there COMPONENT ${component} EXCLUDE_FROM_ALL)

    foreach(program IN LISTS game_TARGET)
        install(CODE "file(CREATE_LINK ${CMAKE_INSTALL_BINDIR}/${program}
            \"\${CMAKE_INSTALL_PREFIX}/${program}\" SYMBOLIC)" ${there})
    endforeach()
    find_file(licence LICENSE NO_CACHE REQUIRED NO_DEFAULT_PATH
        PATHS ${package_files} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/..)
    install(FILES ${licence}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${game_NAME}/licences/Glidewing ${there})

    set(beginning "${game_NAME} ${game_VERSION}")
    string(LENGTH "${beginning}" length)
    string(REPEAT "=" ${length} line)
    string(APPEND beginning "\n${line}\n\nStart the game with\n\n    ./${first}\n\nfrom wherever this directory is.\n")
    if(game_README)
        file(READ ${game_README} beginning)
    endif()
    set(offer "")
    if(game_CONTACT)
        set(offer "\nShould the sources of one not be found as said above, they will be sent to anyone who
asks within three years of getting this archive, for no more than the cost of doing so:

    ${game_CONTACT}\n")
    endif()
    set(readme ${CMAKE_CURRENT_BINARY_DIR}/${component}/README)
    configure_file(${package_files}/README.in ${readme} @ONLY)
    install(FILES ${readme} DESTINATION . ${there})

    string(TOLOWER ${CMAKE_SYSTEM_NAME} system)
    set(archive ${game_NAME}-${game_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR})
    add_custom_target(${component}
        COMMAND ${CMAKE_COMMAND} "-Dbuild=${CMAKE_BINARY_DIR}" "-Dconfiguration=$<CONFIG>"
            "-Dcomponents=${component};${game_COMPONENTS}"
            "-Dstage=${CMAKE_CURRENT_BINARY_DIR}/${component}/stage"
            "-Darchive=${CMAKE_CURRENT_BINARY_DIR}/${archive}.tar.gz"
            -P ${package_files}/archive.cmake
        COMMENT "Making ${archive}.tar.gz"
        VERBATIM)
    list(TRANSFORM game_TARGET APPEND -movable OUTPUT_VARIABLE movable)
    add_dependencies(${component} ${game_TARGET} ${movable})
endfunction()
