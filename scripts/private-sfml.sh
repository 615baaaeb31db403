# A private SFML 3 for machines whose system has none, apart from everything that is
# installed: unpacked from newer Debian suites, or compiled. Sourced by bootstrap, whose
# helpers it uses; when all systems have SFML 3, this file and its routes can go.

# shellcheck shell=bash
# shellcheck disable=SC2154  # scratch and log are bootstrap's

# What is unpacked: a package (a pattern, because names carry versions) and where it
# comes from. The C library and the C++ library come along, because those of the machine
# may be too old: from the older suite, whose libraries suit more machines, and only if
# SFML needs newer ones from its own.
sfml_suite=forky
older_suite=trixie
runtime_recipe='
    libc6                   older
    libflac[0-9]+           older
    libgcc-s1               older
    libstb0[a-z0-9]*        older
    libstdc++6              older
    libsfml-dev             newest
    libsfml-audio[0-9.]+    newest
    libsfml-graphics[0-9.]+ newest
    libsfml-system[0-9.]+   newest
    libsfml-window[0-9.]+   newest
    libsheenbidi[0-9]+      newest
'

# What is compiled: the newest SFML whose libraries and CMake most systems have.
sfml_repository=https://github.com/SFML/SFML.git
sfml_release=3.0.2

# Its place, in which one stamp tells which of the two it is. The build looks for the
# first: only what is unpacked has a loader of its own.
runtime=$(sfml_runtime_dir)
unpacked_stamp=$runtime/bootstrap.stamp
compiled_stamp=$runtime/compiled.stamp

# The first lines of the stamps: another recipe or machine makes another runtime.
unpacked_line() {
    printf 'recipe %s %s\n' "$(dpkg --print-architecture)" \
        "$(cksum <<<"$sfml_suite $older_suite $runtime_recipe" | tr ' ' -)"
}
compiled_line() { printf 'compiled %s %s\n' "$(uname -m)" "$sfml_release"; }

# has_line STAMP LINE-FUNCTION: asks for the line only when there is a stamp.
has_line() {
    local first
    [[ -f $1 ]] && read -r first <"$1" && [[ $first == "$($2)" ]]
}

runtime_unpacked() {
    has_line "$unpacked_stamp" unpacked_line &&
        compgen -G "$runtime/usr/lib/*/cmake/SFML/SFMLConfig.cmake" >/dev/null &&
        compgen -G "$runtime/usr/lib/*/ld-linux*.so.*" >/dev/null
}

runtime_compiled() {
    has_line "$compiled_stamp" compiled_line && [[ -f $runtime/usr/lib/cmake/SFML/SFMLConfig.cmake ]]
}

# Whether the suites of the recipe can be had: their archive and architecture are known.
can_unpack_runtime() {
    [[ -n $(debian_archive) && $(dpkg --print-architecture) == @(amd64|arm64) ]]
}

# make_once COMPLETE MAKE: calls MAKE with the lock held, unless COMPLETE says that it is
# there. MAKE fills a directory, which is renamed into the place: it is there whole or
# not at all. Two at once: the second waits, and finds it made.
make_once() {
    local staging=$runtime.new
    # Only what this script made is replaced, and that always has a stamp.
    [[ -f $unpacked_stamp || -f $compiled_stamp || -z $(ls -A "$runtime" 2>/dev/null) ]] ||
        die "$runtime is not empty and not of this script's making; not touching it"
    if ! { mkdir -p "${runtime%/*}/" && : >>"$runtime.lock"; } 2>/dev/null; then
        die "cannot write to ${runtime%/*}/; name another place with GLIDEWING_SFML_RUNTIME"
    fi
    exec 9>>"$runtime.lock"
    if ! flock -n 9; then
        say 'Waiting for another bootstrap that is making SFML 3 ...'
        flock 9
    fi
    if ! "$1"; then
        scratch=$(mktemp -d "${TMPDIR:-/tmp}/glidewing-sfml.XXXXXX")
        "$2" "$staging"
        rm -rf "$runtime.old"
        [[ ! -e $runtime ]] || mv -T "$runtime" "$runtime.old"
        mv -T "$staging" "$runtime"
        rm -rf "$runtime.old"
    fi
    exec 9>&-
    if ((EUID == 0)) && [[ -n ${SUDO_USER:-} ]]; then
        say "Only root's builds find it there: to build as $SUDO_USER, run this again without sudo."
    fi
}

# --- unpacked ----------------------------------------------------------------

# Reads the lists of the suites, apart from the machine's own: apt's configuration
# for that is the file $scratch/apt.conf.
private_apt_setup() {
    local archive arch suite
    archive=$(debian_archive)
    arch=$(dpkg --print-architecture)
    mkdir -p "$scratch"/{lists/partial,cache/archives/partial,debs}
    # No package counts as installed here, and no preference of the machine holds.
    : >"$scratch/status"
    for suite in "$sfml_suite" "$older_suite"; do
        printf 'deb [arch=%s signed-by=%s] %s %s main\n' "$arch" \
            /usr/share/keyrings/debian-archive-keyring.gpg "$archive" "$suite"
    done >"$scratch/sources.list"
    cat >"$scratch/apt.conf" <<END_OF_CONFIGURATION
Dir::Etc::SourceList "$scratch/sources.list";
Dir::Etc::SourceParts "/dev/null";
Dir::Etc::Preferences "/dev/null";
Dir::Etc::PreferencesParts "/dev/null";
Dir::State::Lists "$scratch/lists";
Dir::State::status "$scratch/status";
Dir::Cache "$scratch/cache";
APT::Default-Release "$sfml_suite";
APT::Get::AllowUnauthenticated "false";
Acquire::AllowInsecureRepositories "false";
Acquire::Languages "none";
Acquire::IndexTargets::deb::DEP-11::DefaultEnabled "false";
Acquire::IndexTargets::deb::Contents-deb::DefaultEnabled "false";
#clear APT::Update::Post-Invoke;
#clear APT::Update::Post-Invoke-Success;
#clear APT::Architectures;
APT::Architectures { "$arch"; };
END_OF_CONFIGURATION
    # apt fetches as a user of its own, which must be able to get in here.
    chmod 755 "$scratch"
    say 'Reading the lists of the Debian suites that have SFML 3 ...'
    update_with "${impatient[@]}" apt-get -q -c "$scratch/apt.conf"
}

# download PACKAGE...: into $scratch/debs.
download() { (cd "$scratch/debs" && quietly 3 apt-get -q -c "$scratch/apt.conf" download "$@"); }

# packages_from SUITE: those of the recipe as apt-get download wants them, name/suite;
# the older ones are taken from this suite.
packages_from() {
    local known pattern origin name
    known=$(apt-cache -c "$scratch/apt.conf" depends --recurse --important libsfml-dev 2>>"$log" |
        grep -o '^[a-z0-9][^ :]*' | sort -u)
    while read -r pattern origin; do
        [[ -n $pattern ]] || continue
        name=$(grep -Ex "${pattern//++/\\+\\+}" <<<"$known" | sort -V | tail -n 1) || true
        [[ -n $name ]] || { printf 'no package matches %s\n' "$pattern" >>"$log"; return 1; }
        [[ $origin == older ]] && origin=$1 || origin=$sfml_suite
        printf '%s/%s\n' "$name" "$origin"
    done <<<"$runtime_recipe"
}

# Whether every library that SFML needs is there, in a version that will do: asks
# the loader that came with it, which says "not found" otherwise.
runtime_fits() {
    local libraries loader library list
    libraries=$(dirname "$1"/usr/lib/*/libsfml-system.so)
    loader=$(echo "$libraries"/ld-linux*.so.*)
    for library in audio graphics system window; do
        list=$("$loader" --library-path "$libraries" --list "$libraries/libsfml-$library.so" 2>&1) ||
            list+=' (not found)'
        printf '\nlibsfml-%s needs\n%s\n' "$library" "$list" >>"$log"
        [[ $list != *'not found'* ]] || return 1
    done
}

# unpack_from SUITE DIRECTORY: fails when the packages are not there or do not fit.
unpack_from() {
    local packages deb
    rm -rf "$2" "$scratch"/debs/*
    mkdir "$2"
    packages=$(packages_from "$1") || return 1
    # shellcheck disable=SC2086  # one word for each package
    download $packages || return 1
    for deb in "$scratch"/debs/*.deb; do
        dpkg -x "$deb" "$2" >>"$log" 2>&1 || fail "cannot unpack ${deb##*/}"
    done
    runtime_fits "$2"
}

unpack_runtime() {
    private_apt_setup
    say "Fetching a private SFML 3 (5 MB; nothing of it gets installed) into $runtime ..."
    if ! unpack_from "$older_suite" "$1"; then
        say 'SFML needs newer libraries; fetching those as well ...'
        unpack_from "$sfml_suite" "$1" || fail 'no private SFML 3 can be had that fits this machine'
    fi
    {
        unpacked_line
        for deb in "$scratch"/debs/*.deb; do dpkg-deb --show "$deb"; done
    } >"$1/bootstrap.stamp"
}

# Those of the C library that was unpacked; an archive forgets older ones.
download_debug_symbols() {
    download "libc6-dbg=$(awk '$1 ~ /^libc6(:|$)/ { print $2 }' "$unpacked_stamp")"
}

# Valgrind does not start a program without the symbols of its C library, and finds
# them in a directory beside it.
add_debug_symbols() {
    local symbols=$runtime/usr/lib/debug libraries
    [[ ! -d $symbols ]] || return 0
    scratch=$(mktemp -d "${TMPDIR:-/tmp}/glidewing-sfml.XXXXXX")
    private_apt_setup
    say "Fetching the C library's debug symbols (7 MB) into $symbols ..."
    if ! download_debug_symbols; then
        say 'There is a newer C library by now; making the private SFML 3 anew ...'
        rm -rf "$scratch"
        make_once false unpack_runtime
        download_debug_symbols || fail 'the debug symbols cannot be fetched'
    fi
    dpkg -x "$scratch"/debs/libc6-dbg_*.deb "$runtime" >>"$log" 2>&1 ||
        fail 'the debug symbols cannot be unpacked'
    for libraries in "$runtime"/usr/lib/*-linux-gnu; do
        mkdir -p "$libraries/.debug"
        find "$symbols/.build-id" -name '*.debug' -exec ln -sf -t "$libraries/.debug" {} +
    done
}

# --- compiled ----------------------------------------------------------------

# As static libraries: what is built with them runs, and can be packed, without this
# directory.
compile_runtime() {
    local sources=${GLIDEWING_SFML_SOURCES:-fetch}
    if [[ $sources == fetch ]]; then
        sources=$scratch/sources
        say "Fetching the sources of SFML $sfml_release ..."
        quietly 2 env GIT_TERMINAL_PROMPT=0 git clone --quiet --depth 1 \
            --branch "$sfml_release" "$sfml_repository" "$sources" ||
            die "the sources of SFML cannot be fetched from $sfml_repository: $(tail -n 1 "$log")
If you have them, name their directory with GLIDEWING_SFML_SOURCES."
    fi
    [[ -f $sources/CMakeLists.txt ]] || die "no sources of SFML in $sources"
    say "Compiling SFML (some minutes, once) into $runtime ..."
    rm -rf "$1"
    quietly 1 cmake -S "$sources" -B "$scratch/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DBUILD_SHARED_LIBS=OFF -DCMAKE_POSITION_INDEPENDENT_CODE=ON \
        -DSFML_USE_SYSTEM_DEPS=ON -DSFML_BUILD_NETWORK=OFF \
        -DCMAKE_INSTALL_PREFIX="$1/usr" -DCMAKE_INSTALL_LIBDIR=lib ||
        fail "SFML's sources cannot be configured"
    quietly 1 cmake --build "$scratch/build" || fail 'SFML cannot be compiled'
    quietly 1 cmake --install "$scratch/build" || fail 'SFML cannot be put in place'
    # Its package looks for shared libraries unless told otherwise.
    sed -i '1i set(SFML_STATIC_LIBRARIES ON)' "$1/usr/lib/cmake/SFML/SFMLConfig.cmake"
    compiled_line >"$1/compiled.stamp"
}
