# Small helpers shared by the scripts; sourced, never run:
#
#   source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/lib.sh"
#   cd "$root"
#
# Sets `root`, the absolute path of the checkout. Changes nothing else.

# shellcheck shell=bash
# shellcheck disable=SC2034  # some is for the scripts that source this file

# In words that every bash knows, however old:
case $OSTYPE in
    linux*) ;;
    *)
        echo "${0##*/}: the scripts are for Linux. Here, install CMake, Ninja and SFML 3, then: cmake --preset play && cmake --build --preset play" >&2
        exit 1
        ;;
esac

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." >/dev/null && pwd -P)

# One line of progress on the standard output.
say() { printf '%s\n' "$*"; }

# One line on the standard error stream, then the end with status 1.
die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# The user's home directory; the accounts' own entry where HOME is not set.
# Prints nothing when there is none.
home_dir() {
    if [[ -n ${HOME:-} ]]; then
        printf '%s\n' "$HOME"
    else
        getent passwd "$(id -u)" 2>/dev/null | cut -d: -f6
    fi
}

# Where the private SFML runtime lives (it need not exist). The only place that
# knows: the build asks here too. Outside the checkout, so that a clean build
# does not download it again. A relative GLIDEWING_SFML_RUNTIME counts from the
# checkout, wherever the caller stands.
sfml_runtime_dir() {
    local dir=${GLIDEWING_SFML_RUNTIME:-} cache
    if [[ -z $dir ]]; then
        cache=${XDG_CACHE_HOME:-}
        # As the base directory rules have it, a relative path there is ignored.
        [[ $cache == /* ]] || cache=$(home_dir)/.cache
        dir=$cache/glidewing/sfml3
    elif [[ $dir != /* ]]; then
        dir=$root/$dir
    fi
    # The rename that puts it in place wants no slash at the end.
    while [[ $dir == */ && $dir != / ]]; do dir=${dir%/}; done
    printf '%s\n' "$dir"
}

# The name of the Debian release that this machine is, or is made of.
debian_codename() {
    # shellcheck source=/dev/null
    (source /etc/os-release && printf '%s' "${DEBIAN_CODENAME:-${VERSION_CODENAME:-}}")
}

# The address of the Debian archive that this machine uses, from its own
# configuration; empty when it uses none, or when it has not read its lists yet.
debian_archive() {
    # shellcheck disable=SC2016  # apt fills these in
    apt-get indextargets --format \
        '$(CREATED_BY) $(ORIGIN) $(LABEL) $(CODENAME) $(COMPONENT) $(REPO_URI)' 2>/dev/null |
        awk -v codename="$(debian_codename)" '$1 == "Packages" && $2 == "Debian" &&
            $3 == "Debian" && $4 == codename && $5 == "main" && $6 !~ /^cdrom:/ && !found++ {
                print $6 }'
}

# Dates in what is made from here on are those of the sources, so that the same sources make
# the same files. SOURCE_DATE_EPOCH in the environment goes first.
date_by_sources() {
    export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
}

# tells_no_path DIRECTORY PATH...: ends the script where a file in there, which is to be
# shipped, names one of these paths: it must not tell about the machine that made it.
tells_no_path() {
    local directory=$1 path found
    for path in "${@:2}"; do
        if found=$(grep -rlF -e "$path" "$directory"); then
            die "what would be shipped names the path $path:
${found//$directory\//  }"
        fi
    done
}

# Configures a preset, quietly unless it fails.
configure() {
    cmake --preset "$1" --log-level=NOTICE >/dev/null
}

# Configures and builds a preset. What follows the preset are options of cmake --build.
build() {
    configure "$1"
    cmake --build --preset "$@" -- --quiet
}

# Has the script run a command when it ends, in whatever way: the newest first. A
# script that uses this sets no EXIT trap of its own.
exit_commands=()
at_exit() {
    exit_commands=("$(printf '%q ' "$@")" "${exit_commands[@]}")
    # shellcheck disable=SC2154  # the loop is what sets it
    trap 'for command in "${exit_commands[@]}"; do eval "$command" || true; done' EXIT
}

# Ends a background process and waits for its end; quiet if it has ended already.
stop() {
    kill "$1" 2>/dev/null || true
    wait "$1" 2>/dev/null || true
}

# Starts an X server that shows on no screen, of the size given (1280x1024), 24
# bits deep and with OpenGL in software, on a free display, and sets DISPLAY to it.
# It ends with the script.
start_virtual_display() {
    local ready number=''
    ready=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${1:-1280x1024}x24" +extension GLX -noreset -nolisten tcp \
        3>"$ready" >/dev/null 2>&1 &
    at_exit stop $!
    for _ in {1..100}; do
        read -r number <"$ready" && break
        sleep 0.1
    done
    rm -f "$ready"
    [[ -n $number ]] || die 'the virtual display (Xvfb) did not start'
    export DISPLAY=:$number
}

# Starts a sound server of our own with a sound card that nobody hears; programs
# started from here on play on it. Sets `sound_monitor`, the source to record from.
# It ends with the script.
start_virtual_sound_card() {
    local dir
    dir=$(mktemp -d)
    at_exit rm -rf "$dir"
    pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disable-shm=yes \
        --load="module-native-protocol-unix socket=$dir/socket auth-anonymous=1" \
        --load='module-null-sink sink_name=null' >/dev/null 2>&1 &
    at_exit stop $!
    for _ in {1..100}; do
        [[ -S $dir/socket ]] && break
        sleep 0.1
    done
    [[ -S $dir/socket ]] || die 'the sound server (pulseaudio) did not start'
    # Without a short latency the null sink stalls.
    export PULSE_SERVER=unix:$dir/socket PULSE_LATENCY_MSEC=30
    sound_monitor=null.monitor
}
