# How the game is built for Windows, on Debian and its like; sourced after lib.sh. Changes
# nothing by itself.

# shellcheck shell=bash

# shellcheck disable=SC2154  # lib.sh's
windows_out=$root/build/windows

# Puts SFML and CLI11 for Windows into one place, anew. SFML is what GLIDEWING_SFML_WINDOWS
# names, compiled, a directory or an archive with one; otherwise it is left out. Sets
# `windows_options`, what CMake has to be told.
collect_windows_libraries() {
    local place=$root/build/windows-libraries given=${GLIDEWING_SFML_WINDOWS:-} package
    rm -rf "$place"
    mkdir -p "$place"
    # Alone: what else is in /usr/include is not for Windows.
    dpkg -L libcli11-dev | sed -nE 's,^/usr/((include|share/cmake|lib/cmake)/),\1,p' |
        tar -c -C /usr --no-recursion -T - | tar -x -C "$place"
    windows_options=("-DGLIDEWING_WINDOWS_LIBRARIES=$place")
    if [[ -z $given ]]; then
        windows_options+=(-DGLIDEWING_FETCH_SFML=ON)
        return
    fi
    mkdir "$place/given"
    if [[ -d $given ]]; then
        cp -a "$given/." "$place/given/"
    else
        tar -xf "$given" -C "$place/given"
    fi
    package=$(find "$place/given" -name SFMLConfig.cmake -print -quit)
    [[ $package == */lib/cmake/SFML/SFMLConfig.cmake ]] ||
        die "GLIDEWING_SFML_WINDOWS: in $given there is no SFML as its own build installs it"
    cp -a "${package%/lib/cmake/SFML/*}/." "$place/"
    rm -rf "$place/given"
}

# What is shipped has no library but Windows' own and no path of this machine, and is small.
# Unpacks it, into `windows_unpacked`.
check_windows_archive() {
    local found program largest=5000000 # bytes
    windows_unpacked=$windows_out/unpacked
    rm -rf "$windows_unpacked" "$windows_out/unzipped"
    unzip -q "$windows_archive" -d "$windows_out/unzipped"
    mv "$windows_out"/unzipped/* "$windows_unpacked"
    rmdir "$windows_out/unzipped"
    for program in tazlet tazlet-demo; do
        found=$(x86_64-w64-mingw32-objdump -p "$windows_unpacked/$program.exe" | sed -n 's/.*DLL Name: //p')
        [[ -n $found ]] || die "$program.exe is no program"
        found=$(grep -viE '^(advapi32|gdi32|kernel32|msvcrt|opengl32|user32|winmm)\.dll$' <<<"$found" || true)
        [[ -z $found ]] || die "$program.exe needs $found"
    done
    tells_no_path "$windows_unpacked" "$root" "$(home_dir)/"
    (($(stat -c %s "$windows_archive") <= largest)) || die "$windows_archive is too large"
}

# build_windows OPTION...: builds the programs and the archive, with these options of CMake,
# and looks at what is in there. Sets `windows_archive` and `windows_unpacked`.
build_windows() {
    local windows_options
    date_by_sources
    collect_windows_libraries
    cmake --fresh --preset windows --log-level=NOTICE "${windows_options[@]}" "$@" >/dev/null
    cmake --build --preset windows -- --quiet
    rm -f "$windows_out"/tazlet-*.zip
    cmake --build --preset windows --target tazlet-package >/dev/null
    windows_archive=$(echo "$windows_out"/tazlet-*.zip)
    check_windows_archive
}

# start_wine PLACE: makes a wine of our own in that directory, for 64 bits alone, and starts a
# window manager, without which its windows get no keys. They end with the script. Sets
# `steadily`, the words to put before what runs wine.
start_wine() {
    export WINEPREFIX=$1 WINEDEBUG=fixme-all LC_ALL=C.UTF-8 LIBGL_ALWAYS_SOFTWARE=1
    # Where places in memory are drawn at random, wine finds one that it needs taken, once in
    # some thousand starts.
    steadily=(setarch --addr-no-randomize)
    "${steadily[@]}" true 2>/dev/null || steadily=()
    # Neither .NET nor a browser is asked for, and a crash ends the program at once.
    export WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe='
    openbox >/dev/null 2>&1 &
    at_exit stop $!
    say 'Starting wine ...'
    "${steadily[@]}" wineboot --init >/dev/null 2>&1 </dev/null || die 'wine does not start'
    at_exit wineserver --kill
    # What wine starts beside its first program, a desktop among others, keeps the output of
    # that one open to the end. So the first waits for ever, and nobody reads its output.
    mkfifo "$WINEPREFIX/nothing"
    "${steadily[@]}" wine cmd <>"$WINEPREFIX/nothing" >/dev/null 2>&1 &
}
