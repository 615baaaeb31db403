# Part of the installation of a game: the licences of what others made, by the Debian
# packages that it comes from. They go to `licences` in the directory `doc_dir`.

cmake_policy(VERSION 3.25)

set(licence_dir "${CMAKE_INSTALL_PREFIX}/${doc_dir}/licences")

# Installs licence and version of a package.
function(take_licence package version text)
    if(NOT version)
        message(FATAL_ERROR "the version of ${package} is not known")
    endif()
    if(NOT EXISTS "${text}")
        # The two GCC libraries of the private runtime link to a package that is not
        # in it. Their licence is that of the machine's.
        set(text "/usr/share/doc/${package}/copyright")
    endif()
    file(REAL_PATH "${text}" text)
    file(INSTALL "${text}" DESTINATION "${licence_dir}/${package}")
    set(target "$ENV{DESTDIR}${licence_dir}/${package}/version")
    file(WRITE "${target}" "${version}\n")
    file(CHMOD "${target}" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES "${licence_dir}/${package}/version")
    set(CMAKE_INSTALL_MANIFEST_FILES "${CMAKE_INSTALL_MANIFEST_FILES}" PARENT_SCOPE)
endfunction()

# Installs the licence of the Debian package that a file of the machine belongs to. The
# package may know it by its place from before /lib became a part of /usr.
function(take_licence_of_file file if_unknown)
    file(REAL_PATH "${file}" real)
    string(REGEX REPLACE "^/usr/" "/" short "${real}")
    execute_process(COMMAND dpkg-query -S "${file}" "${real}" "${short}"
        OUTPUT_VARIABLE owners ERROR_QUIET)
    if(owners MATCHES "^([^:,]+)[:,]")
        set(package "${CMAKE_MATCH_1}")
        execute_process(COMMAND dpkg-query -W -f "\${Version} " "${package}" OUTPUT_VARIABLE version)
        string(REGEX REPLACE " .*" "" version "${version}") # one per architecture
        take_licence("${package}" "${version}" "/usr/share/doc/${package}/copyright")
    else()
        message(${if_unknown} "${file} belongs to no Debian package: its licence is not known")
    endif()
endfunction()

# Debian's licence files refer to these instead of repeating them.
function(take_common_licences)
    file(INSTALL /usr/share/common-licenses/ DESTINATION "${licence_dir}/common-licenses")
endfunction()
