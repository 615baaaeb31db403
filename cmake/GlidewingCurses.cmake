# Gives glidewing_curses, the target to link for ncurses with wide characters; none where it
# is not found.

block()
    set(CURSES_NEED_WIDE ON)
    find_package(Curses QUIET)
    if(CURSES_FOUND AND NOT TARGET glidewing_curses)
        add_library(glidewing_curses INTERFACE)
        target_include_directories(glidewing_curses SYSTEM INTERFACE ${CURSES_INCLUDE_DIRS})
        target_link_libraries(glidewing_curses INTERFACE ${CURSES_LIBRARIES})
    endif()
endblock()
