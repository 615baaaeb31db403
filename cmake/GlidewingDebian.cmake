# The Debian package, made by CPack. Include it once, after GlidewingInstall.cmake, with
# which it shares its variables. The component `debian` is only installed by CPack: what the
# package needs beyond the installed game.

set(CPACK_PACKAGE_NAME tazlet)
set(CPACK_PACKAGE_VENDOR "The Glidewing maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "pin flying insects in the order asked for")
set(CPACK_PACKAGE_DESCRIPTION
"Insects fly out of three flowers, and collectors pay for them: pin what the
row at the top of the screen asks for, kind and colour, from left to right.
A complete row is sold, and the flowers open faster. The board holds eight
insects; pin without thinking, and it fills up.
.
Everything on the screen is drawn with text characters.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL game desktop debian)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_GENERATOR DEB)
set(CPACK_TAZLET_BINDIR ${CMAKE_INSTALL_BINDIR})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${GLIDEWING_MAINTAINER}")
# What is opened at run time. What is linked is added by packaging/staged.cmake.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libgl1, libgl1-mesa-dri, libpulse0 | libasound2")
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/staged.cmake)
foreach(file changelog copyright)
    configure_file(packaging/debian/${file}.in ${out}/debian/${file} @ONLY)
endforeach()
set(changelog ${out}/debian/changelog.Debian.gz)
add_custom_command(OUTPUT ${changelog}
    COMMAND gzip -9 --no-name --stdout ${out}/debian/changelog > ${changelog}
    DEPENDS ${out}/debian/changelog VERBATIM)
add_custom_target(tazlet-debian ALL DEPENDS ${changelog})
install(FILES ${changelog} ${out}/debian/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tazlet COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES packaging/debian/lintian-overrides
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME tazlet COMPONENT debian EXCLUDE_FROM_ALL)

include(CPack)
