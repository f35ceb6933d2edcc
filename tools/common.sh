# Sourced by the scripts beside it: where things are, and how to speak.
top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
build=$top/build
session=$build/wine        # display, home folder and locks of this build folder's Wine
cache=${XDG_CACHE_HOME:-$HOME/.cache}/zavikmditabs
root32=$cache/wine32-root  # 32-bit Debian with Wine, where the system has none

say() { printf '%s\n' "$*" >&2; }
die() { say "${0##*/}: $*"; exit 1; }

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "'$*' needs root, and there is no sudo"
    fi
}

# Goes on in a mount namespace of its own, in which the 32-bit root can be
# furnished: nothing is left mounted, and parallel calls do not see each other.
own_mounts() {
    if [ "$(id -u)" = 0 ]; then
        exec unshare --mount --propagation private "$@"
    else
        exec unshare --user --map-root-user --mount --propagation private "$@"
    fi
}

# Prints what runs 32-bit programs: "system", "root", or nothing.
wine32_kind() {
    if [ -x /usr/lib/wine/wine ]; then
        echo system
    elif [ -e "$root32/.complete" ]; then
        echo root
    fi
}

# Why the 32-bit root cannot be entered here, or nothing.
mounts_refused() {
    { (own_mounts true) 2>&1 >/dev/null || true; } | head -n 1
}

# Goes on without the right to override file permissions: a write-protected or
# unreadable drawing is to be that for root as well.
as_person() {
    if [ "$(id -u)" = 0 ] && setpriv --bounding-set=-dac_override,-dac_read_search true 2>/dev/null; then
        exec setpriv --bounding-set=-dac_override,-dac_read_search "$@"
    fi
    exec "$@"
}
