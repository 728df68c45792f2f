#!/usr/bin/env bash
# Makes a folder with a small Debian of 32 bits and its Wine inside, once: Debian's Wine of 64 bits
# runs no programs of 32 bits. The programs in wine32/ enter it. The last line tells where it is.
# Ends with status 77 and the reason where it cannot be had.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/dependencies.sh"
# Where debootstrap is, and what installing packages needs.
export PATH=$PATH:/usr/sbin:/sbin
tree=$windows_cache/i386
made_of=$(cat "${BASH_SOURCE[0]}" "$here/dependencies.sh" | sha256sum)

cannot() {
    echo "$*"
    exit 77
}
[ "$(id -u)" -eq 0 ] || cannot "a Wine of 32 bits lives in a tree of its own, which only root can enter"
unshare --mount --propagation private true 2>/dev/null ||
    cannot "a Wine of 32 bits lives in a tree of its own, and this system lets nobody mount what it needs"

mkdir -p "$windows_cache"
exec 9>"$tree.lock"
flock 9
if [ "$(cat "$tree/made-of" 2>/dev/null)" != "$made_of" ]; then
    echo "== making a tree of Debian of 32 bits with Wine (once)" >&2
    if grep -qF " $tree/" /proc/mounts; then
        echo "Something is mounted in $tree" >&2
        exit 1
    fi
    rm -rf --one-file-system "$tree"
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    log=$windows_cache/i386.log
    mirror=$(debian_mirror "$release")
    if ! debootstrap --arch=i386 --variant=minbase "$release" "$tree" "$mirror" >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        cannot "no tree of Debian of 32 bits can be made here; the whole of it is in $log"
    fi
    # Nothing is started, and nothing written that only people read.
    printf '#!/bin/sh\nexit 101\n' >"$tree/usr/sbin/policy-rc.d"
    chmod +x "$tree/usr/sbin/policy-rc.d"
    printf 'path-exclude=/usr/share/doc/*\npath-exclude=/usr/share/man/*\nforce-unsafe-io\n' \
        >"$tree/etc/dpkg/dpkg.cfg.d/small"
    apt-config dump | grep -E '^Acquire::https?::Proxy ' >"$tree/etc/apt/apt.conf.d/proxy" || true
    if ! unshare --mount --propagation private -- sh -c \
        'tree=$1; shift; mount --rbind /proc "$tree/proc"; mount --rbind /dev "$tree/dev"
         exec chroot "$tree" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 \
             apt-get install -y -q --no-install-recommends "$@"' \
        sh "$tree" "${tree_packages[@]}" >>"$log" 2>&1; then
        tail -n 20 "$log" >&2
        cannot "the packages of a Wine of 32 bits cannot be had here; the whole of it is in $log"
    fi
    rm -f "$tree"/var/cache/apt/archives/*.deb
    printf '%s\n' "$made_of" >"$tree/made-of"
fi
echo "$tree"
