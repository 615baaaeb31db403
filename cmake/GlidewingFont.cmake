# The font: GLIDEWING_FONT is its path, also for projects that have this one as a
# subfolder. The engine reads it as gw-font.ttf where a program is started; the target
# `stage-font` puts it into the run directory.

set(GLIDEWING_FONT ${PROJECT_SOURCE_DIR}/assets/gw-font.ttf CACHE FILEPATH
    "A fixed-width TrueType font whose characters are half as wide as the size")
add_custom_target(stage-font
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/run
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${GLIDEWING_FONT}
            ${PROJECT_BINARY_DIR}/run/gw-font.ttf
    COMMENT "Staging the font in ${PROJECT_BINARY_DIR}/run"
    VERBATIM)
