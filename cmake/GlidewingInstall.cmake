# What `cmake --install` puts where. Include it once, at the end of the top
# directory, outside of the builds with sanitizers, whose programs nobody takes home.
#
#   <prefix>/games/tazlet               the launcher, a shell script
#   <prefix>/libexec/tazlet/tazlet      the program
#   <prefix>/libexec/tazlet/{lib,newer} libraries, where they have to come along
#   <prefix>/share/tazlet               sprites, sounds, music, font
#   <prefix>/share/...                  manual page, menu entry, icons, licences
#
# Components: `game`; `runtime`, the private SFML where there is one; and what only
# packages have, see GlidewingPackage.cmake.

include(GNUInstallDirs)
set(GLIDEWING_GAMESDIR "games" CACHE STRING "Where the launcher goes, below the prefix")
set(GLIDEWING_WEB "https://glidewing.example" CACHE STRING
    "Address of the project's pages, for the software centre entry; the default is a \
reserved name, so whoever publishes packages sets their own")
mark_as_advanced(GLIDEWING_GAMESDIR GLIDEWING_WEB)

set(tazlet_private_dir ${CMAKE_INSTALL_LIBEXECDIR}/tazlet)
set(tazlet_data_dir ${CMAKE_INSTALL_DATADIR}/tazlet)
set(tazlet_id org.glidewing.tazlet)

# --- the program ---------------------------------------------------------------

# The build's own program starts with the loader of the private runtime, by the path
# that this has on this machine. The installed one is linked again from the same
# object files, without any such path; its launcher finds the loader.
set(tazlet_runtime "")
if(TARGET SFML::System)
    get_target_property(imported SFML::System IMPORTED)
    get_target_property(library SFML::System LOCATION)
    if(imported AND library)
        get_filename_component(prefix "${library}/../../../.." ABSOLUTE)
        if(EXISTS "${prefix}/bootstrap.stamp")
            set(tazlet_runtime "${prefix}")
        endif()
    endif()
endif()
if(tazlet_runtime)
    get_target_property(options glidewing_sfml INTERFACE_LINK_OPTIONS)
    set(wrapped "LINKER:--allow-shlib-undefined")
    foreach(option IN LISTS options)
        list(APPEND wrapped "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:TAZLET_INSTALLED>>>:${option}>")
    endforeach()
    set_property(TARGET glidewing_sfml PROPERTY INTERFACE_LINK_OPTIONS "${wrapped}")
endif()

add_executable(tazlet-installed $<TARGET_OBJECTS:tazlet>)
target_link_libraries(tazlet-installed PRIVATE tazlet-game)
# RPATH, not RUNPATH: also for what the libraries there need themselves.
target_link_options(tazlet-installed PRIVATE "LINKER:--disable-new-dtags")
set_target_properties(tazlet-installed PROPERTIES
    TAZLET_INSTALLED ON
    OUTPUT_NAME tazlet
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/installed
    BUILD_WITH_INSTALL_RPATH ON
    INSTALL_RPATH "$ORIGIN/lib")
if(NOT tazlet_runtime)
    # An SFML of the user's own, outside of where the system looks.
    set_target_properties(tazlet-installed PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
endif()
install(TARGETS tazlet-installed DESTINATION ${tazlet_private_dir} COMPONENT game)

# --- what goes beside it -------------------------------------------------------

set(tazlet_build_program ${PROJECT_BINARY_DIR}/tazlet)
configure_file(packaging/bundle.cmake.in ${PROJECT_BINARY_DIR}/packaging/bundle.cmake @ONLY)
function(tazlet_install_bundle bundle)
    install(CODE "set(tazlet_bundle ${bundle})\n\
include(\"${PROJECT_BINARY_DIR}/packaging/bundle.cmake\")" ${ARGN})
endfunction()
tazlet_install_bundle(font COMPONENT game)
if(tazlet_runtime)
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
file(RELATIVE_PATH tazlet_program_from_games
    /${GLIDEWING_GAMESDIR} /${tazlet_private_dir}/tazlet)
file(RELATIVE_PATH tazlet_data_from_games /${GLIDEWING_GAMESDIR} /${tazlet_data_dir})

set(out ${PROJECT_BINARY_DIR}/packaging)
foreach(file tazlet tazlet.6 ${tazlet_id}.metainfo.xml)
    configure_file(packaging/${file}.in ${out}/${file} @ONLY)
endforeach()
install(PROGRAMS ${out}/tazlet DESTINATION ${GLIDEWING_GAMESDIR} COMPONENT game)
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
