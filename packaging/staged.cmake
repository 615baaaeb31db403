# Read by CPack once the files of the Debian package are in place.

# All of one date where one is asked for, so that the same files make the same package.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND find "${CPACK_TEMPORARY_DIRECTORY}"
        -exec touch --no-dereference --date "@$ENV{SOURCE_DATE_EPOCH}" {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()

# Adds the packages that the program and the libraries beside it are linked with to the
# dependencies of the Debian package. CPack's own way would also look at the C library
# that comes along, and demand the machine's in exactly its version.
file(GLOB_RECURSE files LIST_DIRECTORIES FALSE "${CPACK_TEMPORARY_DIRECTORY}/*")
list(FILTER files INCLUDE REGEX "/libexec/tazlet/(tazlet[^/]*|lib/[^/]+)$")
if(NOT files)
    message(FATAL_ERROR "there is no program in ${CPACK_TEMPORARY_DIRECTORY}")
endif()
list(GET files 0 first)
string(REGEX REPLACE "/libexec/tazlet/.*" "" prefix "${first}")
set(libraries "${prefix}/libexec/tazlet/lib")

# Debian's games are started from a directory of their own.
cmake_path(GET CPACK_TAZLET_BINDIR PARENT_PATH parent)
file(RENAME "${prefix}/${CPACK_TAZLET_BINDIR}" "${prefix}/${parent}/games")

# dpkg-shlibdeps wants to see a source package.
set(scratch "${CPACK_TOPLEVEL_DIRECTORY}/dependencies")
file(WRITE "${scratch}/debian/control" "Source: tazlet\n\nPackage: tazlet\nArchitecture: any\n")
execute_process(COMMAND dpkg-shlibdeps --ignore-missing-info "-l${libraries}" -O ${files}
    WORKING_DIRECTORY "${scratch}"
    OUTPUT_VARIABLE depends ERROR_VARIABLE warnings RESULT_VARIABLE status
    OUTPUT_STRIP_TRAILING_WHITESPACE)
string(REGEX REPLACE "^shlibs:Depends=" "" depends "${depends}")
if(NOT status EQUAL 0 OR NOT depends MATCHES "libx11-6")
    message(FATAL_ERROR "dpkg-shlibdeps does not tell the dependencies: ${depends}\n${warnings}")
endif()
string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", ${depends}")
