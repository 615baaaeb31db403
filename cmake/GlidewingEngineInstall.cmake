# What `cmake --install` puts where for those who write games on an installed engine.
# Include it once, in the top directory, outside of the builds with sanitizers.
#
#   <prefix>/include/glidewing                the public headers, as "Object.h" and as
#                                             <glidewing/Object.h>
#   <prefix>/lib/libglidewing.a               the engine
#   <prefix>/lib/libglidewing-runner.a        the runner, if it is built
#   <prefix>/lib/cmake/Glidewing              for find_package(Glidewing): gw::engine and
#                                             gw::runner, and GLIDEWING_FONT as in a
#                                             subfolder, and glidewing_package
#   <prefix>/share/glidewing/gw-font.ttf      that font
#   <prefix>/bin/gw-sprite                    the tool for sprites, if it is built
#
# Component: `engine`. It belongs to the machine that it was built on: it wants the
# same SFML again, and fetches that once more where it was fetched.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(glidewing_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Glidewing)
set(glidewing_font_dir ${CMAKE_INSTALL_DATADIR}/glidewing)

# What the package asks of SFML: the same minor version.
string(REGEX MATCH "^([0-9]+)\\.([0-9]+)" glidewing_sfml_wanted "${glidewing_sfml_version}")
math(EXPR next "${CMAKE_MATCH_2} + 1")
string(APPEND glidewing_sfml_wanted "...<${CMAKE_MATCH_1}.${next}")
set(glidewing_sfml_fetch OFF)
if(GLIDEWING_FETCH_SFML)
    set(glidewing_sfml_fetch ON)
endif()

# Installs a library under its name in find_package. Each has a file of targets of its own:
# the package offers those whose libraries it finds.
function(glidewing_install_library target name)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    target_include_directories(${target} INTERFACE
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/glidewing>)
    install(TARGETS ${target} EXPORT Glidewing-${name}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT engine
        PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/glidewing COMPONENT engine)
    install(EXPORT Glidewing-${name} NAMESPACE gw:: FILE Glidewing-${name}.cmake
        DESTINATION ${glidewing_package_dir} COMPONENT engine)
endfunction()

glidewing_install_library(glidewing engine)
if(GLIDEWING_RUNNER)
    glidewing_install_library(glidewing-runner runner)
endif()
install(FILES ${GLIDEWING_FONT} DESTINATION ${glidewing_font_dir} RENAME gw-font.ttf
    COMPONENT engine)
if(GLIDEWING_TOOLS)
    # It goes on finding an SFML that is not where the system looks.
    set_target_properties(gw-sprite PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
    install(TARGETS gw-sprite DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT engine)
endif()

configure_package_config_file(cmake/GlidewingConfig.cmake.in GlidewingConfig.cmake
    INSTALL_DESTINATION ${glidewing_package_dir} PATH_VARS glidewing_font_dir)
write_basic_package_version_file(GlidewingConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/GlidewingConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/GlidewingConfigVersion.cmake
              cmake/GlidewingCurses.cmake
              cmake/GlidewingPackage.cmake
              cmake/GlidewingSfml.cmake
    DESTINATION ${glidewing_package_dir} COMPONENT engine)
install(DIRECTORY cmake/package DESTINATION ${glidewing_package_dir} COMPONENT engine)
install(FILES LICENSE DESTINATION ${glidewing_package_dir}/package COMPONENT engine)
