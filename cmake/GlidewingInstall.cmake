# What `cmake --install` puts where on Linux. Include it once, at the end of the top
# directory, outside of the builds with sanitizers, whose programs nobody takes home.
#
#   <prefix>/bin, libexec, share/tazlet   the game: see GlidewingPackage.cmake
#   <prefix>/share/...                    manual pages, menu entry, icons
#
# Components: `game` and `desktop`; and what only packages have, see GlidewingDebian.cmake.
# The target tazlet-package makes the archive of both.

include(GNUInstallDirs)
set(tazlet_id org.glidewing.tazlet)
set(tazlet_programs tazlet)
if(GLIDEWING_DEMO)
    list(APPEND tazlet_programs tazlet-terminal)
endif()

glidewing_install_game(NAME tazlet TARGET ${tazlet_programs} ASSETS assets/tazlet COMPONENT game)

# --- what is written at configuration ------------------------------------------

set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(STRINGS CHANGELOG.md tazlet_release REGEX "^## .${PROJECT_VERSION}. - ")
if(NOT tazlet_release MATCHES " - ([0-9]+-[0-9][0-9]-[0-9][0-9])$")
    message(FATAL_ERROR "CHANGELOG.md does not tell when ${PROJECT_VERSION} was released")
endif()
set(tazlet_release_date ${CMAKE_MATCH_1})
# SOURCE_DATE_EPOCH counts: the same sources give the same package.
string(TIMESTAMP tazlet_changelog_date "%a, %d %b %Y 00:00:00 +0000" UTC)

set(out ${PROJECT_BINARY_DIR}/packaging)
foreach(file README.portable ${tazlet_id}.metainfo.xml)
    configure_file(packaging/${file}.in ${out}/${file} @ONLY)
endforeach()
install(FILES packaging/${tazlet_id}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
install(FILES ${out}/${tazlet_id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT desktop)

# --- what is made from our files: the compressed manual pages, the icons -------

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(made "")
foreach(program IN LISTS tazlet_programs)
    set(page ${out}/${program}.6)
    configure_file(packaging/${program}.6.in ${page} @ONLY)
    add_custom_command(OUTPUT ${page}.gz
        COMMAND gzip -9 --no-name --keep --force ${page}
        DEPENDS ${page} VERBATIM)
    list(APPEND made ${page}.gz)
    install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man6 COMPONENT desktop)
endforeach()
install(FILES packaging/${tazlet_id}.svg DESTINATION ${icons}/scalable/apps COMPONENT desktop)
include(cmake/GlidewingIcon.cmake)
if(GLIDEWING_RSVG)
    foreach(size 48 64 128 256)
        tazlet_icon(${size} icon)
        list(APPEND made ${icon})
        install(FILES ${icon} DESTINATION ${icons}/${size}x${size}/apps
            RENAME ${tazlet_id}.png COMPONENT desktop)
    endforeach()
endif()
add_custom_target(tazlet-packaging ALL DEPENDS ${made})

glidewing_package(TARGET ${tazlet_programs} ASSETS assets/tazlet COMPONENTS desktop
    README ${out}/README.portable CONTACT "${GLIDEWING_MAINTAINER}")
add_dependencies(tazlet-package tazlet-packaging)
