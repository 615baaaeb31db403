# Makes the archive of a game: see GlidewingPackage.cmake. To be run with `components`
# of the build in the directory `build`, which are put together in the directory `stage`, and
# `archive`, the file to make.

cmake_policy(VERSION 3.25)

cmake_path(GET archive FILENAME top)
string(REGEX REPLACE "\\.(tar\\.gz|zip)$" "" top "${top}")

list(REMOVE_ITEM components "") # which stands for all of them
file(REMOVE_RECURSE "${stage}")
foreach(component IN LISTS components)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env --unset=DESTDIR ${CMAKE_COMMAND} --install "${build}"
            --config "${configuration}" --component "${component}" --strip
            --prefix "${stage}/${top}"
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()

# Nothing of this machine goes in: neither the order of its directories, nor its users, nor,
# where there is a date, its own.
file(REMOVE "${archive}.new")
if(archive MATCHES "\\.zip$")
    if(DEFINED ENV{SOURCE_DATE_EPOCH})
        execute_process(COMMAND find "${stage}" -exec touch --date "@$ENV{SOURCE_DATE_EPOCH}" {} +
            COMMAND_ERROR_IS_FATAL ANY)
    endif()
    # Zip's times have no zone: these are of Greenwich.
    execute_process(
        COMMAND find "${top}" ! -type d
        COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C sort
        COMMAND ${CMAKE_COMMAND} -E env TZ=UTC zip -9 -q -X "${archive}.new" -@
        WORKING_DIRECTORY "${stage}" COMMAND_ERROR_IS_FATAL ANY)
else()
    set(dates "")
    if(DEFINED ENV{SOURCE_DATE_EPOCH})
        set(dates "--mtime=@$ENV{SOURCE_DATE_EPOCH}")
    endif()
    execute_process(
        COMMAND tar --create --directory "${stage}" --format=gnu --sort=name ${dates}
            --owner=0 --group=0 --numeric-owner --mode=u=rwX,go=rX "${top}"
        COMMAND gzip --best --no-name
        OUTPUT_FILE "${archive}.new"
        COMMAND_ERROR_IS_FATAL ANY)
endif()
file(RENAME "${archive}.new" "${archive}")
