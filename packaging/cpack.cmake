# Read by CPack for each kind of package that it makes: what goes in, and where to.
# Whether there is a private SFML runtime is only known to the build.
if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_COMPONENTS_ALL game ${CPACK_TAZLET_DEBIAN} debian)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
else()
    set(CPACK_COMPONENTS_ALL game ${CPACK_TAZLET_PORTABLE} portable)
    set(CPACK_PACKAGING_INSTALL_PREFIX /)
    # The one directory that everything unpacks into.
    set(CPACK_PACKAGE_FILE_NAME "${CPACK_ARCHIVE_FILE_NAME}")
    set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
endif()
