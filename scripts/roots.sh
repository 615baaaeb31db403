# Empty Debian systems in directories, to try things in as others would; sourced after
# lib.sh, with `scratch` set to a directory. All of it needs root.

# shellcheck shell=bash

# Runs a command with its output in a file, which is shown when it fails.
quietly() {
    # shellcheck disable=SC2154  # the caller's
    "$@" >"$scratch/log" 2>&1 </dev/null || die "failed: $*
$(tail -n 30 "$scratch/log")"
}

# What runs in a mount namespace of its own, before the command that follows: the system
# becomes a mount, so that namespaces can be made in it too.
# shellcheck disable=SC2016  # for the shell that it is given to
mounts='mount --bind "$0" "$0" && mount -t proc proc "$0/proc" &&
    mount --rbind /sys "$0/sys" && mount --rbind /dev "$0/dev" && "$@"'

# enter_as USER SYSTEM: sets `enter` to the words that run a command there as the user,
# who has the settings given as NAME=VALUE and few others. Mounts and whatever is still
# running go with it. To end it early takes SIGKILL: unshare itself ignores SIGTERM.
enter_as() {
    enter=(unshare --mount --pid --fork --kill-child sh -c "$mounts" "$2"
        chroot --userspec="$1:$1" "$2" /usr/bin/env -i LC_ALL=C.UTF-8
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin:/usr/games)
}

# in_system SYSTEM COMMAND...: runs it there as root.
in_system() {
    local enter
    enter_as root "$1"
    "${enter[@]}" DEBIAN_FRONTEND=noninteractive "${@:2}"
}

# The same as the player, in place of the shell.
as_player() {
    local enter
    enter_as player "$1"
    exec "${enter[@]}" "${@:2}"
}

# make_root SUITE PLACE PACKAGE...: an empty Debian of the suite with the packages and a
# user, player. It is made beside its place and renamed into it: it is there whole or
# not at all.
make_root() {
    local suite=$1 place=$2 address
    shift 2
    address=$(debian_archive)
    [[ -n $address ]] || die "this machine reads no Debian archive; run apt-get update first"
    say "Fetching an empty $suite into $place ..."
    mkdir -p "${place%/*}"
    rm -rf --one-file-system "$place.new"
    quietly debootstrap --variant=minbase --include=ca-certificates \
        --keyring=/usr/share/keyrings/debian-archive-keyring.gpg "$suite" "$place.new" "$address" \
        /usr/share/debootstrap/scripts/sid # which all suites share
    # How this machine reaches the archive and what it puts up with, if that is special.
    apt-config dump | grep -E '^Acquire::(https?::|Check-Valid-Until|Check-Date)' \
        >"$place.new/etc/apt/apt.conf.d/machine" || true
    quietly in_system "$place.new" apt-get -q update
    quietly in_system "$place.new" apt-get -q -y install --no-install-recommends "$@"
    quietly in_system "$place.new" useradd --create-home --shell /bin/bash player
    mv -T "$place.new" "$place"
}

# wait_at_most SECONDS PID: the status of a background process, which is killed then.
# Nothing in the background watches the time: a subshell that is ended as it starts
# still has the exit commands of the script.
wait_at_most() {
    local seconds
    for ((seconds = 0; seconds < $1; seconds++)); do
        kill -0 "$2" 2>/dev/null || break
        sleep 1
    done
    kill -KILL "$2" 2>/dev/null || true
    wait "$2"
}
