# Part of the installation of a game: copies libraries that its programs need, and the
# licences of what others made. Included by what GlidewingPackage.cmake installs, with
#
#   programs     those of the build, which run on this machine. The dynamic loader itself is
#                asked what they need
#   origins      which libraries to take:
#                  private   what comes from the private SFML; such an SFML is nowhere else
#                  machine   everything else beyond what each desktop has, for an archive
#                            that is unpacked anywhere. Needs a Debian machine, which knows
#                            the licences
#   runtime      the directory of the private SFML, where there is one
#   parts        files of others that are a part of the program
#   private_dir, doc_dir, game_NAME

cmake_policy(VERSION 3.25)

set(private_dir "${CMAKE_INSTALL_PREFIX}/${private_dir}")
include("${CMAKE_CURRENT_LIST_DIR}/licences.cmake")

# The C library, the C++ library and what is built with them: only used together, and
# only where the machine's are too old.
set(language_libraries
    "^(libc|libm|libmvec|libdl|libpthread|libresolv|librt|libstdc\\+\\+|libgcc_s|libatomic)\\.so")
# Files of the C library that only drivers and plug-ins of the machine ask for. They
# must be of the same build as the C library.
set(c_library_companions
    libanl.so.1 libdl.so.2 libmvec.so.1 libnss_compat.so.2 libnss_dns.so.2
    libnss_files.so.2 libpthread.so.0 libresolv.so.2 librt.so.1 libutil.so.1)
# What talks to the machine's X server, devices and drivers, or is shared with its
# drivers, is never brought along.
set(machine_libraries
    "^(libX11|libX11-xcb|libxcb.*|libXau|libXdmcp|libXext|libXfixes|libbsd|libmd|libudev|libz)\\.so")

# Appends the libraries of one program that are to be taken to `needed`, by the paths where
# the loader found them.
function(find_libraries program)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C LD_TRACE_LOADED_OBJECTS=1 "${program}"
        OUTPUT_VARIABLE trace RESULT_VARIABLE status)
    if(NOT status EQUAL 0 OR trace MATCHES "not found" OR NOT trace MATCHES "libc\\.so")
        message(FATAL_ERROR "${program} does not tell which libraries it needs:\n${trace}")
    endif()
    string(REGEX MATCHALL "\tlib[^ \n]+ => /[^\n]+ \\(0x" entries "${trace}")
    foreach(entry IN LISTS entries)
        string(REGEX REPLACE ".* => (/.+) \\(0x" "\\1" file "${entry}")
        set(origin machine)
        cmake_path(IS_PREFIX runtime "${file}" NORMALIZE is_private)
        if(runtime AND is_private)
            set(origin private)
        endif()
        cmake_path(GET file FILENAME name)
        if(origin IN_LIST origins AND NOT name MATCHES "${machine_libraries}")
            list(APPEND needed "${file}")
        endif()
    endforeach()
    list(REMOVE_DUPLICATES needed)
    set(needed "${needed}" PARENT_SCOPE)
endfunction()

# Copies the library and the links that lead to it.
function(take library directory)
    file(INSTALL "${library}" DESTINATION "${private_dir}/${directory}" FOLLOW_SYMLINK_CHAIN)
endfunction()

# The loader goes by the name of the game: see the launcher.
function(take_c_library library)
    cmake_path(GET library PARENT_PATH directory)
    foreach(name IN LISTS c_library_companions)
        take("${directory}/${name}" newer)
    endforeach()
    file(GLOB loader "${directory}/ld-linux*.so.*")
    file(REAL_PATH "${loader}" loader)
    file(INSTALL "${loader}" DESTINATION "${private_dir}/newer" TYPE PROGRAM
        RENAME "${game_NAME}")
endfunction()

function(take_libraries)
    foreach(file IN LISTS needed)
        cmake_path(GET file FILENAME name)
        if(name MATCHES "${language_libraries}")
            take("${file}" newer)
        else()
            take("${file}" lib)
        endif()
        if(name MATCHES "^libc\\.so")
            take_c_library("${file}")
        endif()
    endforeach()
endfunction()

# The stamp names the packages of the runtime, with their versions.
function(take_licences_of_runtime)
    file(STRINGS "${runtime}/bootstrap.stamp" lines REGEX "^lib.*\t")
    foreach(line IN LISTS lines)
        string(REGEX MATCH "^([^\t]+)\t(.+)$" line "${line}")
        set(package "${CMAKE_MATCH_1}")
        set(version "${CMAKE_MATCH_2}")
        if(NOT package MATCHES "-dev$")
            take_licence("${package}" "${version}"
                "${runtime}/usr/share/doc/${package}/copyright")
        endif()
    endforeach()
endfunction()

set(needed "")
if(origins)
    foreach(program IN LISTS programs)
        find_libraries("${program}")
    endforeach()
    if(NOT needed)
        message(FATAL_ERROR "no library was found to install")
    endif()
    take_libraries()
endif()
foreach(part IN LISTS parts)
    take_licence_of_file("${part}" STATUS)
endforeach()
if("private" IN_LIST origins)
    take_licences_of_runtime()
endif()
if("machine" IN_LIST origins)
    foreach(file IN LISTS needed)
        cmake_path(IS_PREFIX runtime "${file}" NORMALIZE is_private)
        if(NOT (runtime AND is_private))
            take_licence_of_file("${file}" FATAL_ERROR)
        endif()
    endforeach()
    take_common_licences()
endif()
