# Builds for Windows on x86_64 on a Debian machine, with the compilers of mingw-w64. The
# programs need no library but Windows' own. What they link is looked for in
# GLIDEWING_WINDOWS_LIBRARIES and nowhere on this machine: scripts/windows.sh fills it.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triplet x86_64-w64-mingw32)

# The other kind of mingw-w64's, without "posix", has no std::thread before GCC 13.
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
# The same sources give the same program whenever it is built.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")

set(GLIDEWING_WINDOWS_LIBRARIES "" CACHE PATH "SFML and CLI11 for Windows, in include, lib and share")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GLIDEWING_WINDOWS_LIBRARIES)
set(SFML_STATIC_LIBRARIES ON)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

set(CMAKE_FIND_ROOT_PATH ${GLIDEWING_WINDOWS_LIBRARIES} /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
