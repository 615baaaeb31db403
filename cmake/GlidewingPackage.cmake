# How a game on the engine is given to players, on Linux and on Windows:
#
#   glidewing_package(TARGET <program>... [ASSETS <file or folder>...]
#       [NAME <name>] [VERSION <version>] [README <file>] [CONTACT <text>] [ICON <file>]
#       [COMPONENTS <component>...])
#
# gives the target <program>-package, which leaves an archive that players unpack anywhere
# and play from: <name>-<version>-<system>-<processor> in the build directory, .tar.gz or for
# Windows .zip. Both are made on Debian or its like, which know the licences of what comes
# along; the one for Windows by a build with cmake/mingw-w64.cmake. The same sources make the
# same archive where SOURCE_DATE_EPOCH is set.
#
#   TARGET      what players start; more than one share all that follows
#   ASSETS      what it reads, each by its own name where it is started, beside the font; of
#               a folder that is written with / at its end, what is in it
#   NAME        one word; as a rule the first program's
#   VERSION     as a rule the project's
#   README      the beginning of the archive's README, in place of how the game is started
#   CONTACT     who answers for the archive, for its README
#   ICON        for Windows, an .ico file; it may be one that the build makes
#   COMPONENTS  what the project itself installs and has to be in it
#
# For Windows all programs, assets, font and README.txt are at the top of the archive, and
# the licences of what others made in a folder of that name. Every TARGET gets the icon, its
# version, and UTF-8 as the encoding of all its texts.
#
# For Linux it has the layout that an installed game has, here with the usual directories:
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

# Installs the caller's ASSETS and the font, with these options of install().
function(glidewing_install_assets destination)
    install(FILES ${GLIDEWING_FONT} DESTINATION ${destination} RENAME gw-font.ttf ${ARGN})
    foreach(asset IN LISTS game_ASSETS)
        cmake_path(ABSOLUTE_PATH asset NORMALIZE)
        if(IS_DIRECTORY ${asset})
            install(DIRECTORY ${asset} DESTINATION ${destination} ${ARGN})
        else()
            install(FILES ${asset} DESTINATION ${destination} ${ARGN})
        endif()
    endforeach()
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

    glidewing_install_assets(${data_dir} ${there})

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
    get_target_property(licences glidewing_sfml GLIDEWING_LICENCES)
    if(licences)
        install(FILES ${licences} DESTINATION ${doc_dir}/licences/SFML ${there})
    endif()
endfunction()

# --- Windows -------------------------------------------------------------------

# Compiles icon, version and encoding into a program.
function(glidewing_add_resources program)
    set(icon "")
    if(game_ICON)
        cmake_path(ABSOLUTE_PATH game_ICON NORMALIZE)
        set(icon "1 ICON \"${game_ICON}\"")
    endif()
    # Four numbers, however many the version has.
    string(REGEX MATCHALL "[0-9]+" numbers "${game_VERSION}.0.0.0.0")
    list(SUBLIST numbers 0 4 numbers)
    list(TRANSFORM numbers REPLACE "^0+([0-9])" "\\1") # which would be octal
    list(JOIN numbers "," numbers)
    set(resources ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
    configure_file(${package_files}/resources.rc.in ${resources} @ONLY)
    set_source_files_properties(${resources} TARGET_DIRECTORY ${program} PROPERTIES
        OBJECT_DEPENDS "${game_ICON};${package_files}/windows.manifest")
    target_sources(${program} PRIVATE ${resources})
endfunction()

# Installs what a part of the programs is, and whoever made it: the engine, SFML with what
# it contains, the compiler's libraries, the runner's command line.
function(glidewing_install_licences)
    get_target_property(licences glidewing_sfml GLIDEWING_LICENCES)
    if(licences)
        install(FILES ${licences} DESTINATION licences/SFML ${there})
        install(FILES ${package_files}/SFML-contents.txt DESTINATION licences/SFML ${there})
    else()
        install(CODE "message(FATAL_ERROR \"SFML came without its licences\")" ${there})
    endif()
    set(parts "")
    if(TARGET gw::runner)
        list(APPEND parts /usr/include/CLI/CLI.hpp)
    endif()
    foreach(library libstdc++.a libgcc.a libmingw32.a)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
        list(APPEND parts ${file})
    endforeach()
    install(CODE "block()
        set(doc_dir .)
        include(\"${package_files}/licences.cmake\")
        foreach(part ${parts})
            take_licence_of_file(\"\${part}\" FATAL_ERROR)
        endforeach()
        take_common_licences()\nendblock()" ${there})
endfunction()

# A game for Windows, in the folder that the archive becomes.
function(glidewing_install_windows_game)
    foreach(program IN LISTS game_TARGET)
        glidewing_add_resources(${program})
    endforeach()
    install(TARGETS ${game_TARGET} RUNTIME DESTINATION . ${there})
    glidewing_install_assets(. ${there})
    glidewing_install_licences()
    configure_file(${licence} ${out}/LICENSE.txt @ONLY NEWLINE_STYLE CRLF)
    install(FILES ${out}/LICENSE.txt DESTINATION licences/Glidewing ${there})
    set(contact "")
    if(game_CONTACT)
        set(contact "\nWho made this archive, and answers questions about it: ${game_CONTACT}\n")
    endif()
    configure_file(${package_files}/README-windows.in ${out}/README.txt @ONLY NEWLINE_STYLE CRLF)
    install(FILES ${out}/README.txt DESTINATION . ${there})
endfunction()

# -----------------------------------------------------------------------------

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

# A game for Linux, in the folder that the archive becomes.
function(glidewing_install_linux_game)
    glidewing_install_game(PORTABLE NAME ${game_NAME} TARGET ${game_TARGET}
        ASSETS ${game_ASSETS} COMPONENT ${component})
    foreach(program IN LISTS game_TARGET)
        install(CODE "file(CREATE_LINK ${CMAKE_INSTALL_BINDIR}/${program}
            \"\${CMAKE_INSTALL_PREFIX}/${program}\" SYMBOLIC)" ${there})
    endforeach()
    install(FILES ${licence}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${game_NAME}/licences/Glidewing ${there})
    set(offer "")
    if(game_CONTACT)
        set(offer "\nShould the sources of one not be found as said above, they will be sent to anyone who
asks within three years of getting this archive, for no more than the cost of doing so:

    ${game_CONTACT}\n")
    endif()
    configure_file(${package_files}/README.in ${out}/README @ONLY)
    install(FILES ${out}/README DESTINATION . ${there})
endfunction()

function(glidewing_package)
    cmake_parse_arguments(PARSE_ARGV 0 game "" "NAME;VERSION;README;CONTACT;ICON" "TARGET;ASSETS;COMPONENTS")
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
    if(NOT CMAKE_HOST_SYSTEM_NAME STREQUAL "Linux" OR NOT CMAKE_SYSTEM_NAME MATCHES "^(Linux|Windows)$")
        message(STATUS "glidewing_package: archives are made on Linux, for it and for Windows, so ${game_NAME} has none")
        return()
    endif()
    set(component ${first}-package)
    set(package_files ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/package)
    set(out ${CMAKE_CURRENT_BINARY_DIR}/${component})
    set(there COMPONENT ${component} EXCLUDE_FROM_ALL)
    find_file(licence LICENSE NO_CACHE REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
        PATHS ${package_files} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/..)
    string(TOLOWER ${CMAKE_SYSTEM_NAME} system)
    set(archive ${game_NAME}-${game_VERSION}-${system}-${CMAKE_SYSTEM_PROCESSOR})
    set(beginning "${game_NAME} ${game_VERSION}")
    string(LENGTH "${beginning}" length)
    string(REPEAT "=" ${length} line)
    set(how "Start the game with\n\n    ./${first}\n\nfrom wherever this directory is.")
    if(system STREQUAL "windows")
        set(how "Start the game with a double click on ${first}.exe, in this unpacked folder.")
    endif()
    string(APPEND beginning "\n${line}\n\n${how}\n")
    if(game_README)
        file(READ ${game_README} beginning)
    endif()

    set(movable "")
    if(system STREQUAL "windows")
        string(APPEND archive .zip)
        glidewing_install_windows_game()
    else()
        string(APPEND archive .tar.gz)
        glidewing_install_linux_game()
        list(TRANSFORM game_TARGET APPEND -movable OUTPUT_VARIABLE movable)
    endif()
    add_custom_target(${component}
        COMMAND ${CMAKE_COMMAND} "-Dbuild=${CMAKE_BINARY_DIR}" "-Dconfiguration=$<CONFIG>"
            "-Dcomponents=${component};${game_COMPONENTS}"
            "-Dstage=${out}/stage"
            "-Darchive=${CMAKE_CURRENT_BINARY_DIR}/${archive}"
            -P ${package_files}/archive.cmake
        COMMENT "Making ${archive}"
        VERBATIM)
    add_dependencies(${component} ${game_TARGET} ${movable})
endfunction()
