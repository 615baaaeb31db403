# What `cmake --install` puts where on Linux. Include it once, at the end of the top
# directory, outside of the builds with sanitizers, whose programs nobody takes home.
#
#   <prefix>/bin/tazlet                 the launcher, a shell script
#   <prefix>/libexec/tazlet/tazlet      the program
#   <prefix>/libexec/tazlet/{lib,newer} libraries, where they have to come along
#   <prefix>/share/tazlet               sprites, sounds, music, font
#   <prefix>/share/...                  manual page, menu entry, icons, licences
#
# Components: `program`; `runtime`, the private SFML where there is one; `game`, the rest;
# and what only packages have, see GlidewingPackage.cmake.

include(GNUInstallDirs)
# Both defaults have a reserved name, so whoever publishes packages sets their own.
set(GLIDEWING_WEB "https://glidewing.example" CACHE STRING "Address of the project's pages")
set(GLIDEWING_MAINTAINER "The Glidewing maintainers <maintainers@glidewing.example>"
    CACHE STRING "Who makes the packages, and answers for them: name and mail address")
mark_as_advanced(GLIDEWING_WEB GLIDEWING_MAINTAINER)

set(tazlet_private_dir ${CMAKE_INSTALL_LIBEXECDIR}/tazlet)
set(tazlet_data_dir ${CMAKE_INSTALL_DATADIR}/tazlet)
set(tazlet_id org.glidewing.tazlet)

# --- the program ---------------------------------------------------------------

# Links the program again, from the same object files, as it has to be elsewhere. What
# follows are properties. The build's own program may start with the loader of the
# private runtime, by the path that this has on this machine; here the launcher finds
# the loader.
function(tazlet_add_program target)
    add_executable(${target} $<TARGET_OBJECTS:tazlet>)
    target_link_libraries(${target} PRIVATE tazlet-game)
    # RPATH, not RUNPATH: also for what the libraries there need themselves.
    target_link_options(${target} PRIVATE "LINKER:--disable-new-dtags")
    set_target_properties(${target} PROPERTIES
        GLIDEWING_MOVABLE ON
        OUTPUT_NAME tazlet
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${target}
        BUILD_WITH_INSTALL_RPATH ON
        ${ARGN})
endfunction()

if(glidewing_sfml_runtime)
    tazlet_add_program(tazlet-installed INSTALL_RPATH "$ORIGIN/lib")
else()
    # No path at all, unless SFML is the user's own, outside of where the system looks.
    tazlet_add_program(tazlet-installed INSTALL_RPATH_USE_LINK_PATH ON)
endif()
install(TARGETS tazlet-installed DESTINATION ${tazlet_private_dir} COMPONENT program)

# --- what goes beside it -------------------------------------------------------

set(tazlet_build_program ${PROJECT_BINARY_DIR}/tazlet)
configure_file(packaging/bundle.cmake.in ${PROJECT_BINARY_DIR}/packaging/bundle.cmake @ONLY)
function(tazlet_install_bundle bundle)
    install(CODE "set(tazlet_bundle ${bundle})\n\
include(\"${PROJECT_BINARY_DIR}/packaging/bundle.cmake\")" ${ARGN})
endfunction()
if(GLIDEWING_FETCH_SFML)
    # It is a part of the program then. The second file tells what SFML contains itself.
    install(FILES ${SFML_SOURCE_DIR}/license.md ${SFML_SOURCE_DIR}/readme.md
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tazlet/licences/SFML COMPONENT game)
endif()
if(glidewing_sfml_runtime)
    tazlet_install_bundle(private COMPONENT runtime)
endif()

install(DIRECTORY assets/tazlet/ DESTINATION ${tazlet_data_dir} COMPONENT game)
install(FILES ${GLIDEWING_FONT} DESTINATION ${tazlet_data_dir} RENAME gw-font.ttf COMPONENT game)

# --- what is written at configuration ------------------------------------------

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(STRINGS CHANGELOG.md tazlet_release REGEX "^## .${PROJECT_VERSION}. - ")
if(NOT tazlet_release MATCHES " - ([0-9]+-[0-9][0-9]-[0-9][0-9])$")
    message(FATAL_ERROR "CHANGELOG.md does not tell when ${PROJECT_VERSION} was released")
endif()
set(tazlet_release_date ${CMAKE_MATCH_1})
# SOURCE_DATE_EPOCH counts: the same sources give the same package.
string(TIMESTAMP tazlet_changelog_date "%a, %d %b %Y 00:00:00 +0000" UTC)
file(RELATIVE_PATH tazlet_program_from_launcher
    /${CMAKE_INSTALL_BINDIR} /${tazlet_private_dir}/tazlet)
file(RELATIVE_PATH tazlet_data_from_launcher /${CMAKE_INSTALL_BINDIR} /${tazlet_data_dir})

set(out ${PROJECT_BINARY_DIR}/packaging)
foreach(file tazlet tazlet.6 ${tazlet_id}.metainfo.xml)
    configure_file(packaging/${file}.in ${out}/${file} @ONLY)
endforeach()
install(PROGRAMS ${out}/tazlet DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT game)
install(FILES packaging/${tazlet_id}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT game)
install(FILES ${out}/${tazlet_id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT game)

# --- what is made from our files: the compressed manual, the icons -------------

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(made ${out}/tazlet.6.gz)
add_custom_command(OUTPUT ${out}/tazlet.6.gz
    COMMAND gzip -9 --no-name --keep --force ${out}/tazlet.6
    DEPENDS ${out}/tazlet.6 VERBATIM)
install(FILES ${out}/tazlet.6.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6 COMPONENT game)
install(FILES packaging/${tazlet_id}.svg DESTINATION ${icons}/scalable/apps COMPONENT game)
find_program(GLIDEWING_RSVG rsvg-convert DOC "Makes icons of fixed sizes; not needed")
mark_as_advanced(GLIDEWING_RSVG)
if(GLIDEWING_RSVG)
    foreach(size 48 64 128 256)
        set(icon ${out}/icon-${size}.png)
        add_custom_command(OUTPUT ${icon}
            COMMAND ${GLIDEWING_RSVG} --width ${size} --height ${size} --output ${icon}
                    ${PROJECT_SOURCE_DIR}/packaging/${tazlet_id}.svg
            DEPENDS packaging/${tazlet_id}.svg VERBATIM)
        list(APPEND made ${icon})
        install(FILES ${icon} DESTINATION ${icons}/${size}x${size}/apps
            RENAME ${tazlet_id}.png COMPONENT game)
    endforeach()
endif()
add_custom_target(tazlet-packaging ALL DEPENDS ${made})
