# Makes the archive of a game: see GlidewingPackage.cmake. To be run with `components`
# of the build in the directory `build`, which are put together in the directory `stage`, and
# `archive`, the file to make.

cmake_path(GET archive FILENAME top)
string(REGEX REPLACE "\\.tar\\.gz$" "" top "${top}")

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
file(RENAME "${archive}.new" "${archive}")
