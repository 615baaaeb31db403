# Icons of fixed sizes, from tazlet's drawing, where GLIDEWING_RSVG was found. To be included
# in the top directory.

find_program(GLIDEWING_RSVG rsvg-convert DOC "Makes icons of fixed sizes; not needed")
mark_as_advanced(GLIDEWING_RSVG)

# Sets <variable> to a picture so many pixels wide and high, which the build makes where a
# target depends on it.
function(tazlet_icon size variable)
    set(icon ${PROJECT_BINARY_DIR}/packaging/icon-${size}.png)
    set(drawing ${PROJECT_SOURCE_DIR}/packaging/org.glidewing.tazlet.svg)
    add_custom_command(OUTPUT ${icon}
        COMMAND ${GLIDEWING_RSVG} --width ${size} --height ${size} --output ${icon} ${drawing}
        DEPENDS ${drawing} VERBATIM)
    set(${variable} ${icon} PARENT_SCOPE)
endfunction()
