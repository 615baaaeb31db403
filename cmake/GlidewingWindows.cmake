# What is made for players with Windows: the icon, and the target tazlet-package, the archive
# that they unpack. Include it once, at the end of the top directory.

set(tazlet_programs tazlet)
if(GLIDEWING_DEMO)
    list(APPEND tazlet_programs tazlet-demo)
endif()

set(out ${PROJECT_BINARY_DIR}/packaging)
configure_file(packaging/README.windows.in ${out}/README.windows @ONLY)

include(cmake/GlidewingIcon.cmake)
find_program(GLIDEWING_ICOTOOL icotool DOC "Puts icons into one file for Windows; not needed")
mark_as_advanced(GLIDEWING_ICOTOOL)
set(icon "")
if(GLIDEWING_RSVG AND GLIDEWING_ICOTOOL)
    set(icon ${out}/tazlet.ico)
    set(pictures "")
    foreach(size 16 24 32 48 64)
        tazlet_icon(${size} picture)
        list(APPEND pictures ${picture})
    endforeach()
    tazlet_icon(256 largest) # stays a PNG in there
    add_custom_command(OUTPUT ${icon}
        COMMAND ${GLIDEWING_ICOTOOL} --create --output ${icon} ${pictures} --raw=${largest}
        DEPENDS ${pictures} ${largest} VERBATIM)
    add_custom_target(tazlet-icon DEPENDS ${icon})
    foreach(program IN LISTS tazlet_programs)
        add_dependencies(${program} tazlet-icon)
    endforeach()
endif()

glidewing_package(TARGET ${tazlet_programs} ASSETS assets/tazlet ICON ${icon}
    README ${out}/README.windows CONTACT "${GLIDEWING_MAINTAINER}")
