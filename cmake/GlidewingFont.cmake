# Finds the font: GLIDEWING_FONT is its path, also for projects that have this one as
# a subfolder. The engine reads it as gw-font.ttf where a program is started; the
# target `stage-font` puts it into the run directory.

find_file(GLIDEWING_FONT
    NAMES agave-r-autohinted.ttf agave-r.ttf Inconsolata.otf Inconsolata-Regular.ttf
    PATHS /usr/share/fonts/truetype/agave /usr/share/fonts/truetype/inconsolata
          /usr/share/fonts/opentype/inconsolata
          /usr/share/fonts/levien-inconsolata-fonts /usr/share/fonts/TTF
    NO_CMAKE_FIND_ROOT_PATH # the same font when it is built for another system
    DOC "A fixed-width TrueType font whose characters are half as wide as the size")
if(NOT GLIDEWING_FONT)
    message(FATAL_ERROR "No font.\n"
        "On Debian and its like, scripts/bootstrap gets one. Elsewhere install Inconsolata, or "
        "name any fixed-width TrueType font whose characters are half as wide as the character "
        "size: -DGLIDEWING_FONT=...")
endif()
add_custom_target(stage-font
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/run
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${GLIDEWING_FONT}
            ${PROJECT_BINARY_DIR}/run/gw-font.ttf
    COMMENT "Staging the font in ${PROJECT_BINARY_DIR}/run"
    VERBATIM)
