# What is made for players with Windows: the icon, and the target tazlet-package, the archive
# that they unpack. Include it once, at the end of the top directory.

set(tazlet_programs tazlet)
if(GLIDEWING_DEMO)
    list(APPEND tazlet_programs tazlet-demo)
endif()

set(out ${PROJECT_BINARY_DIR}/packaging)
configure_file(packaging/README.windows.in ${out}/README.windows @ONLY)

find_program(GLIDEWING_RSVG rsvg-convert DOC "Makes icons of fixed sizes; not needed")
find_program(GLIDEWING_ICOTOOL icotool DOC "Puts icons into one file for Windows; not needed")
mark_as_advanced(GLIDEWING_RSVG GLIDEWING_ICOTOOL)
set(icon "")
if(GLIDEWING_RSVG AND GLIDEWING_ICOTOOL)
    set(icon ${out}/tazlet.ico)
    set(sizes "")
    set(commands "")
    foreach(size 16 24 32 48 64 256)
        list(APPEND commands COMMAND ${GLIDEWING_RSVG} --width ${size} --height ${size}
            --output ${out}/${size}.png ${PROJECT_SOURCE_DIR}/packaging/org.glidewing.tazlet.svg)
        list(APPEND sizes ${out}/${size}.png)
    endforeach()
    # The largest stays a PNG in there.
    list(TRANSFORM sizes PREPEND --raw= AT -1)
    add_custom_command(OUTPUT ${icon} ${commands}
        COMMAND ${GLIDEWING_ICOTOOL} --create --output ${icon} ${sizes}
        DEPENDS packaging/org.glidewing.tazlet.svg VERBATIM)
    add_custom_target(tazlet-icon DEPENDS ${icon})
    foreach(program IN LISTS tazlet_programs)
        add_dependencies(${program} tazlet-icon)
    endforeach()
endif()

glidewing_package(TARGET ${tazlet_programs} ASSETS assets/tazlet ICON ${icon}
    README ${out}/README.windows CONTACT "${GLIDEWING_MAINTAINER}")
